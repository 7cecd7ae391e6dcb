#include "MabRixSAXHandlerObjectDetailsList.h"

#include "KelCheck.h"
#include "KelError.h"
#include "MabRixDocumentIDList.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringUtils.h"
#include "MabRixStringValue.h"

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
  if (!iAttributes)
    return E_FAIL;
  return iAttributes->GetValue(KelUnicodeString(iName), oValue);
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
  HRESULT Result = RixSuccessInit();
  Result = MabRixSAXHandlerBase::StartElement(iName, iAttributes);
  if (FAILED(Result))
    Result = MabRixRaiseUnexpected(Result);
  if (FAILED(Result) || !_pObjectContext)
    Result = MabRixRaiseUnexpected(Result);

  _CurrentElement = iName;
  if (iName == "cadobject")
    return StartCADObject(iAttributes, Result);
  if ((iName == "revisioninfo" || iName == "access") && _bInCADObject)
    return StartRevisionInfo(iAttributes, Result);
  if (iName == "revisioninfolist" || iName == "accessinfo")
    return Result;
  return StartTextElement(iName, iAttributes, Result);
}

// Creates and fills the object, major object and minor object of one
// cadobject. Required attributes are read while all went well and raise when
// missing; optional ones are read whatever the result, through one scratch
// string that a missing attribute leaves as it was.
HRESULT MabRixSAXHandlerObjectDetailsList::StartCADObject(const KelISAXAttributeList_var& iAttributes, HRESULT iResult)
{
  HRESULT Result = iResult;
  _bInCADObject = TRUE;
  if (FAILED(Result) || !iAttributes)
    Result = MabRixRaiseUnexpected(Result);

  if (SUCCEEDED(Result) && !!iAttributes)
    Result = iAttributes->GetValue("type", _Type);
  if (FAILED(Result))
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && !!iAttributes)
    Result = iAttributes->GetValue("name", _Name);
  if (FAILED(Result))
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && !!iAttributes)
    Result = iAttributes->GetValue("zqrevision", _Revision);
  if (FAILED(Result))
    Result = MabRixRaiseUnexpected(Result);

  // "--": no revision given; the bus revision up to its first "." is it.
  if (_Revision == "--")
  {
    KelUnicodeString BusRevision;
    if (SUCCEEDED(Result))
      Result = ReadAttribute(iAttributes, "busrevision", BusRevision);
    if (FAILED(Result))
      Result = MabRixRaiseUnexpected(Result);
    const int Dot = BusRevision.SearchSubString(".", 0, SearchForward);
    if (Dot < 0 || FAILED(Result))
      Result = MabRixRaiseUnexpected(Result);
    if (SUCCEEDED(Result))
      _Revision = BusRevision.SubString(0, Dot);
  }

  MabERixObject* pObject = nullptr;
  MabERixMajorObject* pMajor = nullptr;
  MabERixMinorObject* pMinor = nullptr;
  if (SUCCEEDED(Result) && _pObjectContext)
    pObject = _pObjectContext->CreateObject(_Type, _Name);
  if (FAILED(Result) || !pObject)
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && _pObjectContext)
    pMajor = _pObjectContext->CreateMajorObject(_Type, _Name);
  if (FAILED(Result) || !pMajor)
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && _pObjectContext)
    pMinor = _pObjectContext->CreateMinorObject(_Type, _Name);
  if (FAILED(Result) || !pMinor)
    Result = MabRixRaiseUnexpected(Result);

  if (SUCCEEDED(Result) && _pObjectContext && !_Revision.IsEmpty())
  {
    Result = _pObjectContext->SetMajorRevision(_Type, _Name, _Revision);
    if (FAILED(Result))
      Result = MabRixRaiseUnexpected(Result);
  }
  if (SUCCEEDED(Result) && !_Revision.IsEmpty() && pObject && pMajor)
  {
    pObject->_SetCurrentMajorRevision(_Revision);
    pMajor->_SetCurrentMajorRevision(TRUE);
  }

  KelUnicodeString Scratch = "";
  if (SUCCEEDED(Result))
  {
    Result = ReadAttribute(iAttributes, "bustype", Scratch);
    if (FAILED(Result))
      Result = MabRixRaiseUnexpected(Result);
    else if (pMinor)
      pMinor->_SetMinorType(Scratch);
  }
  if (SUCCEEDED(Result))
  {
    Result = ReadAttribute(iAttributes, "zqversion", Scratch);
    if (FAILED(Result))
      Result = MabRixRaiseUnexpected(Result);
    else if (!Scratch.IsEmpty() && pMinor)
    {
      const int Dot = Scratch.SearchSubString(".", 0, SearchForward);
      if (Dot >= 0)
        pMinor->_SetMinorVersion(Scratch.SubString(Dot + 1, Scratch.GetLengthInChar() - Dot - 1));
    }
  }
  if (SUCCEEDED(Result))
  {
    Result = ReadAttribute(iAttributes, "status", Scratch);
    if (FAILED(Result))
      Result = MabRixRaiseUnexpected(Result);
    else if (pMinor)
      pMinor->_SetStatus(Scratch);
  }

  // From here on, whatever the result.
  if (SUCCEEDED(ReadAttribute(iAttributes, "lockedby", Scratch)) && pMajor)
    pMajor->_SetLockOwner(Scratch);
  if (SUCCEEDED(ReadAttribute(iAttributes, "islocked", Scratch)) && pMajor)
    pMajor->_SetLockStatus(IsTrueText(Scratch, "true") ? TRUE : FALSE);
  if (SUCCEEDED(ReadAttribute(iAttributes, "connectedfolder", Scratch)) && pMajor)
    pMajor->_SetConnectedFolder(MabRixStringUtils::GetList(Scratch, "|"));
  if (SUCCEEDED(ReadAttribute(iAttributes, "oid", Scratch)) && pMinor)
    pMinor->_SetMinorOID(Scratch);
  if (SUCCEEDED(ReadAttribute(iAttributes, "uuid", Scratch)) && pMinor)
    pMinor->_SetMinorUUID(Scratch);
  if (SUCCEEDED(ReadAttribute(iAttributes, "uuidconflict", Scratch)) && pMinor)
    pMinor->_SetUUIDConflict(IsTrueText(Scratch, "true") ? TRUE : FALSE);

  // The document ID, unless the minor object has one: the full file name,
  // else the directory joined with the file name, else the file name.
  MabRixDocumentIDList DocumentIDs;
  if (pMinor && FAILED(pMinor->GetDocumentIDList(DocumentIDs)))
  {
    MabRixPath Path;
    if (SUCCEEDED(ReadAttribute(iAttributes, "filenamewithpath", Scratch)))
      Path = Scratch;
    if (SUCCEEDED(ReadAttribute(iAttributes, "dirname", Scratch)) && !Path.IsValid())
    {
      const MabRixPath Directory(Scratch);
      if (SUCCEEDED(ReadAttribute(iAttributes, "filename", Scratch)))
        Path = Directory / MabRixPath(Scratch);
    }
    if (SUCCEEDED(ReadAttribute(iAttributes, "filename", Scratch)) && !Path.IsValid())
      Path = Scratch;
    if (!_Name.IsEmpty() && !_Type.IsEmpty())
      pMinor->_SetMinorDocumentID(MabRixDocumentID::Create(_Type, _Name, Path));
  }

  if (_pObjDetailsResponse && pMinor)
    pMinor->_SetCanResolveUUIDConflict(_pObjDetailsResponse->CanResolveUUIDConflict());

  // Each modification flag goes in once, from the scratch as it stands.
  const char* ModificationKeys[] = {"modified", "ismodifiedobsolete"};
  for (const char* Key : ModificationKeys)
  {
    if (SUCCEEDED(Result) && !!iAttributes)
      (void)iAttributes->GetValue(KelUnicodeString(Key), Scratch);
    if (!Scratch.IsEmpty() && pMinor && !pMinor->_ExtraAttributes.HasKey(Key))
      pMinor->_ExtraAttributes.Insert(Key, Scratch);
    Scratch = "";
  }

  if (pObject)
    pObject->Release();
  if (pMajor)
    pMajor->Release();
  if (pMinor)
    pMinor->Release();
  return Result;
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

  if (SUCCEEDED(Result))
    Result = ReadAttribute(iAttributes, "revision", _RevInfoRevision);
  if (FAILED(Result))
    Result = MabRixRaiseUnexpected(Result);

  KelUnicodeString NextVersion;
  if (SUCCEEDED(Result))
    Result = ReadAttribute(iAttributes, "nextversion", NextVersion);
  if (FAILED(Result))
    Result = MabRixRaiseUnexpected(Result);
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

  MabERixObject* pObject = nullptr;
  MabERixMajorObject* pMajor = nullptr;
  if (SUCCEEDED(Result) && _pObjectContext)
  {
    pObject = _pObjectContext->CreateObject(_Type, _Name);
    if (!pObject)
      Result = MabRixRaiseUnexpected(Result);
  }
  if (SUCCEEDED(Result) && _pObjectContext)
  {
    pMajor = _pObjectContext->CreateMajorObject(_Type, _Name, _RevInfoRevision);
    if (!pMajor)
      Result = MabRixRaiseUnexpected(Result);
  }
  // These references are not given back by this step.
  for (KelBaseUnknown* pKept : {static_cast<KelBaseUnknown*>(pObject), static_cast<KelBaseUnknown*>(pMajor)})
    if (pKept)
      _KeptReferences.push_back(KelBaseUnknown_var::Adopt(pKept));

  if (SUCCEEDED(Result) && pObject && pMajor)
  {
    pMajor->_SetNextMinorVersion(NextMinorVersion);
    pMajor->_SetMajorRevision(_RevInfoRevision);
    pMajor->_SetNextMajorRevision(bNext ? TRUE : FALSE);
    if (bNext)
      pObject->_SetNextMajorRevision(_RevInfoRevision);
  }

  KelUnicodeString CurrentRevision;
  if (pMajor)
    pMajor->GetCurrentMajorRevision(CurrentRevision);

  // Whatever the result: the lock of another revision than the current one.
  KelUnicodeString LockedBy;
  if (SUCCEEDED(ReadAttribute(iAttributes, "lockedby", LockedBy)) && pMajor && _RevInfoRevision != CurrentRevision)
    pMajor->_SetLockOwner(LockedBy);
  KelUnicodeString LockStatus;
  if (SUCCEEDED(ReadAttribute(iAttributes, "lockstatus", LockStatus)) && pMajor && _RevInfoRevision != CurrentRevision)
    pMajor->_SetLockStatus(IsTrueText(LockStatus, "locked") ? TRUE : FALSE);
  KelUnicodeString Access;
  if (SUCCEEDED(ReadAttribute(iAttributes, "overwriteaccess", Access)) && pMajor)
    pMajor->_SetOverwriteAccess(IsTrueText(Access, "true") ? TRUE : FALSE);
  KelUnicodeString VersionAccess;
  if (SUCCEEDED(ReadAttribute(iAttributes, "versionaccess", VersionAccess)) && pMajor)
    pMajor->_SetCreateVersionAccess(IsTrueText(VersionAccess, "true") ? TRUE : FALSE);
  return Result;
}

HRESULT MabRixSAXHandlerObjectDetailsList::StartTextElement(const KelUnicodeString& iName,
                                                            const KelISAXAttributeList_var& iAttributes,
                                                            HRESULT iResult)
{
  _spChildHandler = MabIRixSAXHandler_var::Adopt(new MabRixSAXHandlerString(*this));
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

  const MabRixObjectID ID(_Type, _Name);
  MabERixMinorObject* pMinor = nullptr;
  if (SUCCEEDED(Result) && _pObjectContext)
  {
    pMinor = KelImplCast<MabERixMinorObject>(_pObjectContext->GetMinorObject(ID).Get());
    if (!pMinor)
      Result = MabRixRaiseUnexpected(Result);
  }
  if (FAILED(Result) || !pMinor)
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && pMinor && pText)
    pMinor->_ElementValues.Insert(_CurrentElement, pText->_Value);

  if (_CurrentElement == "Type")
  {
    MabERixObject* pObject = nullptr;
    if (SUCCEEDED(Result) && _pObjectContext)
      pObject = KelImplCast<MabERixObject>(_pObjectContext->GetObject(ID).Get());
    if (FAILED(Result) || !pObject)
      Result = MabRixRaiseUnexpected(Result);
    if (SUCCEEDED(Result) && pObject && pText)
      pObject->_SetType(pText->_Value);
    return Result;
  }
  if (_CurrentElement == "State" || _CurrentElement == "Lock" || _CurrentElement == "LockedBy")
  {
    MabERixMajorObject* pMajor = nullptr;
    if (SUCCEEDED(Result) && _pObjectContext)
      pMajor = KelImplCast<MabERixMajorObject>(_pObjectContext->GetMajorObject(ID).Get());
    if (FAILED(Result) || !pMajor)
      Result = MabRixRaiseUnexpected(Result);
    if (FAILED(Result) || !pMajor || !pText)
      return Result;
    if (_CurrentElement == "State")
      pMajor->_SetState(pText->_Value);
    else if (_CurrentElement == "LockedBy")
      pMajor->_SetLockOwner(pText->_Value);
    else
    {
      KelUnicodeString Lock = pText->_Value;
      pMajor->_SetLockStatus(IsTrueText(Lock, "true") ? TRUE : FALSE);
    }
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
    Flush();
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
