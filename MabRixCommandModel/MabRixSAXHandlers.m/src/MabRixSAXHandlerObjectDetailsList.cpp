#include "MabRixSAXHandlerObjectDetailsList.h"

#include <new>

#include "KelCheck.h"
#include "KelError.h"
#include "MabRixDocumentIDList.h"
#include "MabRixHandlerSteps.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringUtils.h"
#include "MabRixStringValue.h"
#include "MabRixTextSupport.h"

MabRixImplementHandler(MabRixSAXHandlerObjectDetailsList, MabRixSAXHandlerBase)

namespace
{
const int SearchForward = 2;

// Lower-cases ioText in place and compares it with iTrue.
bool IsTrueText(KelUnicodeString& ioText, const char* iTrue)
{
  ioText.ToLower();
  return ioText == iTrue;
}

HRESULT ReadAttribute(const KelISAXAttributeList_var& iAttributes, const char* iName, KelUnicodeString& oValue)
{
  return MabRixCopyAttribute(iAttributes, iName, oValue);
}
}  // namespace

MabRixSAXHandlerObjectDetailsList::MabRixSAXHandlerObjectDetailsList(MabRixSAXHandlerBase& iParent,
                                                                     MabRixCADObjectContext*& pObjectContext)
    : MabRixSAXHandlerBase(iParent)
{
  if (KelCheck(pObjectContext))
    _pObjectContext = pObjectContext;
}

MabRixSAXHandlerObjectDetailsList::~MabRixSAXHandlerObjectDetailsList()
{
  _pObjectContext = nullptr;
  _pObjDetailsResponse = nullptr;
}

HRESULT MabRixSAXHandlerObjectDetailsList::SetObjDetailsResponsePtr(MabRixObjectDetailsResponse* iResponse)
{
  _pObjDetailsResponse = iResponse;
  return KelError::GetReturn(1, nullptr, nullptr, KEL_CHECK_FILE, __LINE__);
}

HRESULT MabRixSAXHandlerObjectDetailsList::Flush()
{
  _Type = "";
  _Name = "";
  _Revision = "";
  return FlushRevInfo();
}

HRESULT MabRixSAXHandlerObjectDetailsList::FlushRevInfo()
{
  _RevInfoRevision = "";
  _Message = "";
  return S_OK;
}

HRESULT MabRixSAXHandlerObjectDetailsList::StartElement(const KelUnicodeString& iName,
                                                        const KelISAXAttributeList_var& iAttributes)
{
  const HRESULT Result = MabRixStartInContext(_pObjectContext, iName, iAttributes);

  _CurrentElement = iName;
  if (iName == "cadobject")
    return StartCADObject(iAttributes, Result);
  if ((iName == "revisioninfo" || iName == "access") && _bInCADObject)
    return StartRevisionInfo(iAttributes, Result);
  if (iName == "revisioninfolist" || iName == "accessinfo")
    return Result;
  return StartTextElement(iName, iAttributes, Result);
}

// The object, major object and minor object of one cadobject, each with the
// reference its creation gave, released when the cadobject's start is done.
struct MabRixSAXHandlerObjectDetailsList::CADEntities
{
  MabERixObject* _pObject = nullptr;
  MabERixMajorObject* _pMajor = nullptr;
  MabERixMinorObject* _pMinor = nullptr;

  CADEntities() = default;
  CADEntities(const CADEntities&) = delete;
  CADEntities& operator=(const CADEntities&) = delete;
  ~CADEntities()
  {
    if (_pObject)
      _pObject->Release();
    if (_pMajor)
      _pMajor->Release();
    if (_pMinor)
      _pMinor->Release();
  }
};

// Creates and fills the object, major object and minor object of one
// cadobject. Required attributes are read while all went well and raise when
// missing; optional ones are read whatever the result, through one scratch
// string that a missing attribute leaves as it was (the modification flags
// take what it holds at their turn).
HRESULT MabRixSAXHandlerObjectDetailsList::StartCADObject(const KelISAXAttributeList_var& iAttributes, HRESULT iResult)
{
  HRESULT Result = iResult;
  _bInCADObject = TRUE;
  if (FAILED(Result) || !iAttributes)
    Result = MabRixRaiseUnexpected(Result);
  Result = ReadIdentity(iAttributes, Result);

  CADEntities Entities;
  Result = CreateEntities(Entities, Result);
  Result = SetCurrentRevision(Entities, Result);

  KelUnicodeString& Scratch = _Scratch;
  Scratch.Clear();
  Result = ReadMinorDetails(iAttributes, Entities._pMinor, Scratch, Result);
  ReadLocksAndIdentifiers(iAttributes, Entities, Scratch);
  SetDocumentID(iAttributes, Entities._pMinor, Scratch);
  if (_pObjDetailsResponse && Entities._pMinor)
    Entities._pMinor->_SetCanResolveUUIDConflict(_pObjDetailsResponse->CanResolveUUIDConflict());
  AddModificationFlags(iAttributes, Entities._pMinor, Scratch, Result);
  return Result;
}

// Type, name and revision, all required. "--": no revision given; the bus
// revision up to its first "." is it.
HRESULT MabRixSAXHandlerObjectDetailsList::ReadIdentity(const KelISAXAttributeList_var& iAttributes, HRESULT iResult)
{
  HRESULT Result = MabRixRequireAttribute(iResult, iAttributes, "type", _Type);
  Result = MabRixRequireAttribute(Result, iAttributes, "name", _Name);
  Result = MabRixRequireAttribute(Result, iAttributes, "zqrevision", _Revision);
  if (_Revision != "--")
    return Result;
  KelUnicodeString BusRevision;
  Result = MabRixRequireAttribute(Result, iAttributes, "busrevision", BusRevision);
  const int Dot = BusRevision.SearchSubString(".", 0, SearchForward);
  if (Dot < 0 || FAILED(Result))
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result))
    _Revision = BusRevision.SubString(0, Dot);
  return Result;
}

// Gets or makes the three entities; each one missing raises.
HRESULT MabRixSAXHandlerObjectDetailsList::CreateEntities(CADEntities& oEntities, HRESULT iResult)
{
  HRESULT Result = iResult;
  if (SUCCEEDED(Result) && _pObjectContext)
    oEntities._pObject = _pObjectContext->CreateObject(_Type, _Name);
  if (FAILED(Result) || !oEntities._pObject)
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && _pObjectContext)
    oEntities._pMajor = _pObjectContext->CreateMajorObject(_Type, _Name);
  if (FAILED(Result) || !oEntities._pMajor)
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && _pObjectContext)
    oEntities._pMinor = _pObjectContext->CreateMinorObject(_Type, _Name);
  if (FAILED(Result) || !oEntities._pMinor)
    Result = MabRixRaiseUnexpected(Result);
  return Result;
}

// The revision read is the current one of the object and its major object.
HRESULT MabRixSAXHandlerObjectDetailsList::SetCurrentRevision(CADEntities& ioEntities, HRESULT iResult)
{
  HRESULT Result = iResult;
  if (SUCCEEDED(Result) && _pObjectContext && !_Revision.IsEmpty())
  {
    Result = _pObjectContext->SetMajorRevision(_Type, _Name, _Revision);
    if (FAILED(Result))
      Result = MabRixRaiseUnexpected(Result);
  }
  if (SUCCEEDED(Result) && !_Revision.IsEmpty() && ioEntities._pObject && ioEntities._pMajor)
  {
    ioEntities._pObject->_SetCurrentMajorRevision(_Revision);
    ioEntities._pMajor->_SetCurrentMajorRevision(TRUE);
  }
  return Result;
}

// Bus type, version and status: required while all went well.
HRESULT MabRixSAXHandlerObjectDetailsList::ReadMinorDetails(const KelISAXAttributeList_var& iAttributes,
                                                            MabERixMinorObject* ipMinor, KelUnicodeString& ioScratch,
                                                            HRESULT iResult)
{
  HRESULT Result = iResult;
  if (SUCCEEDED(Result))
  {
    Result = MabRixRequireAttribute(Result, iAttributes, "bustype", ioScratch);
    if (SUCCEEDED(Result) && ipMinor)
      ipMinor->_SetMinorType(ioScratch);
  }
  if (SUCCEEDED(Result))
  {
    Result = MabRixRequireAttribute(Result, iAttributes, "zqversion", ioScratch);
    if (SUCCEEDED(Result) && !ioScratch.IsEmpty() && ipMinor)
    {
      const int Dot = ioScratch.SearchSubString(".", 0, SearchForward);
      if (Dot >= 0)
        ipMinor->_SetMinorVersion(ioScratch.SubString(Dot + 1, ioScratch.GetLengthInChar() - Dot - 1));
    }
  }
  if (SUCCEEDED(Result))
  {
    Result = MabRixRequireAttribute(Result, iAttributes, "status", ioScratch);
    if (SUCCEEDED(Result) && ipMinor)
      ipMinor->_SetStatus(ioScratch);
  }
  return Result;
}

// Optional, whatever the result: lock, folder and the minor's identifiers.
void MabRixSAXHandlerObjectDetailsList::ReadLocksAndIdentifiers(const KelISAXAttributeList_var& iAttributes,
                                                                CADEntities& ioEntities, KelUnicodeString& ioScratch)
{
  MabERixMajorObject* pMajor = ioEntities._pMajor;
  MabERixMinorObject* pMinor = ioEntities._pMinor;
  if (SUCCEEDED(ReadAttribute(iAttributes, "lockedby", ioScratch)) && pMajor)
    pMajor->_SetLockOwner(ioScratch);
  if (SUCCEEDED(ReadAttribute(iAttributes, "islocked", ioScratch)) && pMajor)
    pMajor->_SetLockStatus(IsTrueText(ioScratch, "true") ? TRUE : FALSE);
  if (SUCCEEDED(ReadAttribute(iAttributes, "connectedfolder", ioScratch)) && pMajor)
    pMajor->_SetConnectedFolder(MabRixStringUtils::GetList(ioScratch, "|"));
  if (SUCCEEDED(ReadAttribute(iAttributes, "oid", ioScratch)) && pMinor)
    pMinor->_SetMinorOID(ioScratch);
  if (SUCCEEDED(ReadAttribute(iAttributes, "uuid", ioScratch)) && pMinor)
    pMinor->_SetMinorUUID(ioScratch);
  if (SUCCEEDED(ReadAttribute(iAttributes, "uuidconflict", ioScratch)) && pMinor)
    pMinor->_SetUUIDConflict(IsTrueText(ioScratch, "true") ? TRUE : FALSE);
}

// The document ID, unless the minor object has one: the full file name,
// else the directory joined with the file name, else the file name.
void MabRixSAXHandlerObjectDetailsList::SetDocumentID(const KelISAXAttributeList_var& iAttributes,
                                                      MabERixMinorObject* ipMinor, KelUnicodeString& ioScratch)
{
  MabRixDocumentIDList DocumentIDs;
  if (!ipMinor || SUCCEEDED(ipMinor->GetDocumentIDList(DocumentIDs)))
    return;
  MabRixPath& Path = _DocumentPath;
  Path.Clear();
  if (SUCCEEDED(ReadAttribute(iAttributes, "filenamewithpath", ioScratch)))
    Path.Assign(ioScratch.View());
  if (SUCCEEDED(ReadAttribute(iAttributes, "dirname", ioScratch)) && !Path.IsValid())
  {
    _Directory.Assign(ioScratch.View());
    if (SUCCEEDED(ReadAttribute(iAttributes, "filename", ioScratch)))
      Path.AssignJoined(_Directory.View(), ioScratch.View());
  }
  if (SUCCEEDED(ReadAttribute(iAttributes, "filename", ioScratch)) && !Path.IsValid())
    Path.Assign(ioScratch.View());
  if (!_Name.IsEmpty() && !_Type.IsEmpty())
  {
    _DocumentID.Assign(_Type, _Name, Path);
    ipMinor->_SetMinorDocumentID(_DocumentID);
  }
}

// Each modification flag goes in once, from the scratch as it stands.
void MabRixSAXHandlerObjectDetailsList::AddModificationFlags(const KelISAXAttributeList_var& iAttributes,
                                                             MabERixMinorObject* ipMinor, KelUnicodeString& ioScratch,
                                                             HRESULT iResult)
{
  static const KelUnicodeString ModificationKeys[] = {"modified", "ismodifiedobsolete"};
  for (const KelUnicodeString& Key : ModificationKeys)
  {
    if (SUCCEEDED(iResult) && !!iAttributes)
      (void)iAttributes->GetValue(Key, ioScratch);
    if (!ioScratch.IsEmpty() && ipMinor && !ipMinor->_ExtraAttributes.HasKey(Key))
      ipMinor->_ExtraAttributes.Insert(Key, ioScratch);
    ioScratch = "";
  }
}

// One revision's record: its major object is got or made and marked; the
// lock of a revision other than the current one is applied to it.
HRESULT MabRixSAXHandlerObjectDetailsList::StartRevisionInfo(const KelISAXAttributeList_var& iAttributes,
                                                             HRESULT iResult)
{
  HRESULT Result = iResult;
  _bInRevisionInfo = TRUE;
  if (FAILED(Result) || !iAttributes)
    Result = MabRixRaiseUnexpected(Result);
  Result = MabRixRequireAttribute(Result, iAttributes, "revision", _RevInfoRevision);

  // "Next": the revision is the next version's, up to its first ".".
  KelUnicodeString NextVersion;
  Result = MabRixRequireAttribute(Result, iAttributes, "nextversion", NextVersion);
  KelUnicodeString NextRevision;
  KelUnicodeString NextMinorVersion;
  const int Dot = NextVersion.SearchSubString(".", 0, SearchForward);
  if (SUCCEEDED(Result) && Dot >= 0)
  {
    NextRevision = NextVersion.SubString(0, Dot);
    NextMinorVersion = NextVersion.SubString(Dot + 1, NextVersion.GetLengthInChar() - Dot - 1);
  }
  const bool bNext = _RevInfoRevision == "Next";
  if (bNext)
    _RevInfoRevision = NextRevision;

  MabERixMajorObject* pMajor = nullptr;
  Result = MarkRevision(NextMinorVersion, bNext, pMajor, Result);
  ReadRevisionAccess(iAttributes, pMajor);
  return Result;
}

// Gets or makes the object and the revision's major object (each missing one
// raises) and marks them; oMajor is the major object, kept by the handler.
HRESULT MabRixSAXHandlerObjectDetailsList::MarkRevision(const KelUnicodeString& iNextMinorVersion, bool ibNext,
                                                        MabERixMajorObject*& oMajor, HRESULT iResult)
{
  HRESULT Result = iResult;
  MabERixObject* pObject = nullptr;
  if (SUCCEEDED(Result) && _pObjectContext)
  {
    pObject = _pObjectContext->CreateObject(_Type, _Name);
    if (!pObject)
      Result = MabRixRaiseUnexpected(Result);
  }
  if (SUCCEEDED(Result) && _pObjectContext)
  {
    oMajor = _pObjectContext->CreateMajorObject(_Type, _Name, _RevInfoRevision);
    if (!oMajor)
      Result = MabRixRaiseUnexpected(Result);
  }
  // These references are not given back by this step.
  for (KelBaseUnknown* pKept : {static_cast<KelBaseUnknown*>(pObject), static_cast<KelBaseUnknown*>(oMajor)})
    if (pKept)
      _KeptReferences.push_back(KelBaseUnknown_var::Adopt(pKept));

  if (SUCCEEDED(Result) && pObject && oMajor)
  {
    oMajor->_SetNextMinorVersion(iNextMinorVersion);
    oMajor->_SetMajorRevision(_RevInfoRevision);
    oMajor->_SetNextMajorRevision(ibNext ? TRUE : FALSE);
    if (ibNext)
      pObject->_SetNextMajorRevision(_RevInfoRevision);
  }
  return Result;
}

// Whatever the result: the lock of another revision than the current one,
// and the access rights.
void MabRixSAXHandlerObjectDetailsList::ReadRevisionAccess(const KelISAXAttributeList_var& iAttributes,
                                                           MabERixMajorObject* ipMajor)
{
  KelUnicodeString CurrentRevision;
  if (ipMajor)
    ipMajor->GetCurrentMajorRevision(CurrentRevision);
  KelUnicodeString LockedBy;
  if (SUCCEEDED(ReadAttribute(iAttributes, "lockedby", LockedBy)) && ipMajor && _RevInfoRevision != CurrentRevision)
    ipMajor->_SetLockOwner(LockedBy);
  KelUnicodeString LockStatus;
  if (SUCCEEDED(ReadAttribute(iAttributes, "lockstatus", LockStatus)) && ipMajor && _RevInfoRevision != CurrentRevision)
    ipMajor->_SetLockStatus(IsTrueText(LockStatus, "locked") ? TRUE : FALSE);
  KelUnicodeString Access;
  if (SUCCEEDED(ReadAttribute(iAttributes, "overwriteaccess", Access)) && ipMajor)
    ipMajor->_SetOverwriteAccess(IsTrueText(Access, "true") ? TRUE : FALSE);
  KelUnicodeString VersionAccess;
  if (SUCCEEDED(ReadAttribute(iAttributes, "versionaccess", VersionAccess)) && ipMajor)
    ipMajor->_SetCreateVersionAccess(IsTrueText(VersionAccess, "true") ? TRUE : FALSE);
}

HRESULT MabRixSAXHandlerObjectDetailsList::StartTextElement(const KelUnicodeString& iName,
                                                            const KelISAXAttributeList_var& iAttributes,
                                                            HRESULT iResult)
{
  // The last text element's handler reads this one when no one else holds it.
  RenewChild<MabRixSAXHandlerString>(_spChildHandler);
  if (!_spChildHandler)
    return iResult;
  const HRESULT hr = _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

// The text of the element named _CurrentElement.
HRESULT MabRixSAXHandlerObjectDetailsList::Value(const MabIRixValue_var& iValue)
{
  HRESULT Result = RixSuccessInit();
  if (FAILED(Result) || !iValue)
    Result = MabRixRaiseUnexpected(Result);
  if (FAILED(Result) || !_pObjectContext)
    Result = MabRixRaiseUnexpected(Result);

  MabRixStringValue* pText = nullptr;
  if (SUCCEEDED(Result))
  {
    pText = KelImplCast<MabRixStringValue>(iValue.Get());
    if (!pText)
      Result = MabRixRaiseUnexpected(Result);
  }

  if (_CurrentElement == "message")
  {
    if (SUCCEEDED(Result) && pText)
      _Message = pText->_Value;
    return Result;
  }

  _CurrentID.Assign(_Type, _Name);
  Result = AddElementValue(_CurrentID, pText, Result);
  if (_CurrentElement == "Type")
    return SetObjectType(_CurrentID, pText, Result);
  if (_CurrentElement == "State" || _CurrentElement == "Lock" || _CurrentElement == "LockedBy")
    return SetMajorState(_CurrentID, pText, Result);
  return Result;
}

// Every text element's value goes to the minor object's element values.
HRESULT MabRixSAXHandlerObjectDetailsList::AddElementValue(const MabRixObjectID& iID, const MabRixStringValue* ipText,
                                                           HRESULT iResult)
{
  HRESULT Result = iResult;
  MabERixMinorObject* pMinor = nullptr;
  if (SUCCEEDED(Result) && _pObjectContext)
  {
    pMinor = KelImplCast<MabERixMinorObject>(_pObjectContext->GetMinorObject(iID).Get());
    if (!pMinor)
      Result = MabRixRaiseUnexpected(Result);
  }
  if (FAILED(Result) || !pMinor)
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && pMinor && ipText)
    pMinor->_ElementValues.Insert(_CurrentElement, ipText->_Value);
  return Result;
}

HRESULT MabRixSAXHandlerObjectDetailsList::SetObjectType(const MabRixObjectID& iID, const MabRixStringValue* ipText,
                                                         HRESULT iResult)
{
  HRESULT Result = iResult;
  MabERixObject* pObject = nullptr;
  if (SUCCEEDED(Result) && _pObjectContext)
    pObject = KelImplCast<MabERixObject>(_pObjectContext->GetObject(iID).Get());
  if (FAILED(Result) || !pObject)
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && pObject && ipText)
    pObject->_SetType(ipText->_Value);
  return Result;
}

// State, lock status or lock owner of the current major object.
HRESULT MabRixSAXHandlerObjectDetailsList::SetMajorState(const MabRixObjectID& iID, const MabRixStringValue* ipText,
                                                         HRESULT iResult)
{
  HRESULT Result = iResult;
  MabERixMajorObject* pMajor = nullptr;
  if (SUCCEEDED(Result) && _pObjectContext)
    pMajor = KelImplCast<MabERixMajorObject>(_pObjectContext->GetMajorObject(iID).Get());
  if (FAILED(Result) || !pMajor)
    Result = MabRixRaiseUnexpected(Result);
  if (FAILED(Result) || !pMajor || !ipText)
    return Result;
  if (_CurrentElement == "State")
    pMajor->_SetState(ipText->_Value);
  else if (_CurrentElement == "LockedBy")
    pMajor->_SetLockOwner(ipText->_Value);
  else
  {
    KelUnicodeString Lock = ipText->_Value;
    pMajor->_SetLockStatus(IsTrueText(Lock, "true") ? TRUE : FALSE);
  }
  return Result;
}

HRESULT MabRixSAXHandlerObjectDetailsList::EndElement(const KelUnicodeString& iName)
{
  HRESULT Result = RixSuccessInit();
  if (FAILED(Result) || !_pObjectContext)
    Result = MabRixRaiseUnexpected(Result);
  if (StopIfNecessary(iName))
    return Result;

  if (iName == "cadobject")
  {
    _bInCADObject = FALSE;
    EndCADObject();
  }
  else if (iName == "revisioninfo")
  {
    _bInRevisionInfo = FALSE;
    MabERixMajorObject* pMajor = nullptr;
    if (SUCCEEDED(Result) && _pObjectContext)
      pMajor = _pObjectContext->CreateMajorObject(_Type, _Name, _RevInfoRevision);
    if (FAILED(Result) || !pMajor)
      Result = MabRixRaiseUnexpected(Result);
    if (SUCCEEDED(Result) && pMajor)
      pMajor->_SetOverwriteError(_Message);
    if (pMajor)
      pMajor->Release();
    FlushRevInfo();
  }
  return Result;
}

// The object is complete: its minor object's dictionaries keep room for
// their entries only, as long as the context lives.
void MabRixSAXHandlerObjectDetailsList::EndCADObject()
{
  if (_pObjectContext && !_Type.IsEmpty())
  {
    _CurrentID.Assign(_Type, _Name);
    const KelBaseUnknown_var spMinor = _pObjectContext->GetMinorObject(_CurrentID);
    if (MabERixMinorObject* pMinor = KelImplCast<MabERixMinorObject>(spMinor.Get()))
    {
      pMinor->_ExtraAttributes.ShrinkToFit();
      pMinor->_ElementValues.ShrinkToFit();
    }
  }
  (void)Flush();
}
