#include "MabRixSAXHandlerObjectList.h"

#include <new>
#include <string_view>
#include <utility>

#include "KelError.h"
#include "MabRixObjectAttributeValue.h"
#include "MabRixSAXHandlerObjectAttribute.h"
#include "MabRixTNRObjectContext.h"
#include "MabRixTextSupport.h"

MabRixImplementHandler(MabRixSAXHandlerObjectList, MabRixSAXHandlerBase)

namespace
{
// Texts of true in attributes: any letter case of "true".
bool IsTrueText(std::string_view iText) { return MabRixEqualsLowered(iText, "true"); }

// Copies a view into a kept text, reusing the room the text already has.
void Store(KelUnicodeString& oText, std::string_view iText)
{
  oText.Clear();
  oText.AppendBytes(iText.data(), iText.size());
}

// "[ALIAS|name]" names a location by its alias: it becomes "KelDLN://name".
// Anything else is a directory as it stands, copied into the room oPath has.
void ReadDirectoryPath(std::string_view iValue, MabRixPath& oPath)
{
  if (!iValue.starts_with("[ALIAS|") || iValue.find(']') == std::string_view::npos)
  {
    oPath.Assign(iValue);
    return;
  }
  const KelUnicodeString Value(iValue);
  const int Bracket = Value.SearchSubString("]", Value.GetLengthInChar(), KelUnicodeString::KelSearchBackward);
  const int Bar = Value.SearchSubString("|", 0, KelUnicodeString::KelSearchForward);
  KelUnicodeString Path = "KelDLN://";
  Path += Value.SubString(Bar + 1, Bracket - Bar - 1);
  oPath = MabRixPath(Path);
}

// Sets a property only when the entity does not have it yet.
template <class Entity, class Type>
void SetWhenUnset(Entity& ioEntity, HRESULT (Entity::*iGet)(Type&) const, HRESULT (Entity::*iSet)(const Type&),
                  const Type& iValue)
{
  Type Current{};
  if (FAILED((ioEntity.*iGet)(Current)))
    (ioEntity.*iSet)(iValue);
}
}  // namespace

MabRixSAXHandlerObjectList::MabRixSAXHandlerObjectList(MabRixSAXHandlerBase& iParent,
                                                       MabRixTNRObjectContext*& ipObjectContext)
    : MabRixSAXHandlerBase(iParent), _pObjectContext(ipObjectContext)
{
}

MabRixSAXHandlerObjectList::~MabRixSAXHandlerObjectList() { _pObjectContext = nullptr; }

HRESULT MabRixSAXHandlerObjectList::StartElement(const KelUnicodeString& iName,
                                                 const KelISAXAttributeList_var& iAttributes)
{
  const HRESULT hr = MabRixSAXHandlerBase::StartElement(iName, iAttributes);
  if (FAILED(hr))
    return MabRixRaiseUnexpected(hr);
  if (iName != "cadobject")
    return hr;
  return StartObject(iName, iAttributes);
}

// Reads the attributes of cadobject, then lets a child read its content.
HRESULT MabRixSAXHandlerObjectList::StartObject(const KelUnicodeString& iName,
                                                const KelISAXAttributeList_var& iAttributes)
{
  if (!iAttributes)
    return MabRixRaiseUnexpected(E_FAIL);
  unsigned int Count = 0;
  const HRESULT hrLength = iAttributes->GetLength(Count);
  if (FAILED(hrLength))
    return MabRixRaiseUnexpected(hrLength);
  if (!(Count > 0u))
    return MabRixRaiseUnexpected(E_FAIL);
  ReadAttributes(*iAttributes, Count);

  // The last object's handler reads this one when no one else holds it.
  RenewChild<MabRixSAXHandlerObjectAttribute>(_spChildHandler);
  if (!_spChildHandler)
    return MabRixRaiseUnexpected(E_FAIL);
  const HRESULT hrStart = _spChildHandler->StartHandlingEvents(iName, iAttributes);
  if (FAILED(hrStart))
    return MabRixRaiseUnexpected(hrStart);
  return hrStart;
}

// Names and values are read in place, in the parser's own text; only what is
// kept is copied.
void MabRixSAXHandlerObjectList::ReadAttributes(KelISAXAttributeList& iAttributes, unsigned int iCount)
{
  std::string_view Name, Value;
  for (unsigned int i = 0; i < iCount; ++i)
  {
    if (SUCCEEDED(iAttributes.GetNameView(i, Name)) && SUCCEEDED(iAttributes.GetValueView(i, Value)))
      ReadAttribute(Name, Value);
  }
}

// Known attributes overwrite what the previous cadobject left; any other goes
// to the extra attributes, where the first occurrence of a name wins.
void MabRixSAXHandlerObjectList::ReadAttribute(std::string_view iName, std::string_view iValue)
{
  static constexpr struct
  {
    std::string_view _Name;
    KelUnicodeString MabRixSAXHandlerObjectList::*_pText;
  } Texts[] = {
      {"busid", &MabRixSAXHandlerObjectList::_BusID},       {"bustype", &MabRixSAXHandlerObjectList::_BusType},
      {"cadid", &MabRixSAXHandlerObjectList::_CADID},       {"locker", &MabRixSAXHandlerObjectList::_Locker},
      {"zqtype", &MabRixSAXHandlerObjectList::_ObjectType}, {"zqversion", &MabRixSAXHandlerObjectList::_FullVersion},
      {"name", &MabRixSAXHandlerObjectList::_Name},         {"oid", &MabRixSAXHandlerObjectList::_ObjectID},
      {"type", &MabRixSAXHandlerObjectList::_CADType},      {"uuid", &MabRixSAXHandlerObjectList::_UUID},
  };
  for (const auto& Text : Texts)
    if (iName == Text._Name)
    {
      Store(this->*Text._pText, iValue);
      return;
    }
  if (iName == "islocked")
    _bLocked = IsTrueText(iValue) ? TRUE : FALSE;
  else if (iName == "dirname")
    ReadDirectoryPath(iValue, _DirectoryPath);
  else if (iName == "filename")
    _FilePath.Assign(iValue);
  else
    _ExtraAttributes.Insert(KelUnicodeString(iName), KelUnicodeString(iValue));
}

// The content of one cadobject has been read: the object is committed.
HRESULT MabRixSAXHandlerObjectList::Value(const MabIRixValue_var& iValue)
{
  HRESULT hr = RixSuccessInit();
  const MabRixObjectAttributeValue* pContent = KelImplCast<MabRixObjectAttributeValue>(iValue.Get());
  if (!iValue)
    hr = MabRixRaiseUnexpected(E_FAIL);
  else if (!_pObjectContext)
    hr = MabRixRaiseUnexpected(E_FAIL);
  else if (_FullVersion.IsEmpty())
    hr = MabRixRaiseUnexpected(E_FAIL);
  else if (!pContent)
    hr = MabRixRaiseUnexpected(E_FAIL);

  MabERixObject* pObject = nullptr;
  MabERixMajorObject* pMajorObject = nullptr;
  MabERixMinorObject* pMinorObject = nullptr;
  if (SUCCEEDED(hr))
    hr = TakeContent(*pContent);
  if (SUCCEEDED(hr))
    hr = CreateEntities(pObject, pMajorObject, pMinorObject);
  if (SUCCEEDED(hr))
    Fill(*pObject, *pMajorObject, *pMinorObject);

  // The context keeps what it created, even after a failure.
  for (KelBaseUnknown* pCreated : {static_cast<KelBaseUnknown*>(pObject), static_cast<KelBaseUnknown*>(pMajorObject),
                                   static_cast<KelBaseUnknown*>(pMinorObject)})
    if (pCreated)
      pCreated->Release();
  Flush();
  return hr;
}

// Element values replace the previous object's; "Ver" and "Rev" among them
// give version and revision unless the full version says otherwise later.
HRESULT MabRixSAXHandlerObjectList::TakeContent(const MabRixObjectAttributeValue& iContent)
{
  _ElementValues = iContent._ElementValues;
  if (const KelUnicodeString* pVersion = _ElementValues.Find("Ver"))
  {
    _Version = *pVersion;
    if (_Version.IsEmpty())
      return MabRixRaiseUnexpected(E_FAIL);
  }
  if (const KelUnicodeString* pRevision = _ElementValues.Find("Rev"))
  {
    _Revision = *pRevision;
    if (_Revision.IsEmpty())
      return MabRixRaiseUnexpected(E_FAIL);
  }
  // The attributes of cadobject itself win over attribute elements.
  for (auto It = iContent._Attributes.begin(); It != iContent._Attributes.end(); ++It)
    _ExtraAttributes.Insert(It.GetKey(), *It);
  _ThumbnailPath = iContent._PreviewPath;
  return S_OK;
}

// Each created entity comes with a reference the caller releases.
HRESULT MabRixSAXHandlerObjectList::CreateEntities(MabERixObject*& opObject, MabERixMajorObject*& opMajorObject,
                                                   MabERixMinorObject*& opMinorObject)
{
  opObject = _pObjectContext->CreateObject(_ObjectType, _Name);
  if (!opObject)
    return MabRixRaiseUnexpected(E_FAIL);
  SplitFullVersion();
  if (_ObjectType.IsEmpty())
    return MabRixRaiseUnexpected(E_FAIL);
  if (_Name.IsEmpty())
    return MabRixRaiseUnexpected(E_FAIL);
  if (_Version.IsEmpty())
    return MabRixRaiseUnexpected(E_FAIL);
  if (_Revision.IsEmpty())
    return MabRixRaiseUnexpected(E_FAIL);
  opMajorObject = _pObjectContext->CreateMajorObject(_ObjectType, _Name, _Revision);
  if (!opMajorObject)
    return MabRixRaiseUnexpected(E_FAIL);
  _MinorID.Assign(_CADID);
  opMinorObject = _pObjectContext->CreateMinorObject(_MinorID, _ObjectType, _Name, _Revision, _Version, TRUE);
  if (!opMinorObject)
    return MabRixRaiseUnexpected(E_FAIL);
  return S_OK;
}

// "A.1.2" is revision "A.1", version "2". Without a ".", version and revision
// stay as they are.
void MabRixSAXHandlerObjectList::SplitFullVersion()
{
  const int Length = _FullVersion.GetLengthInChar();
  const int Dot = _FullVersion.SearchSubString(".", Length, KelUnicodeString::KelSearchBackward);
  if (Dot < 0)
    return;
  _Revision = _FullVersion.SubString(0, Dot);
  _Version = _FullVersion.SubString(Dot + 1, Length - Dot - 1);
}

void MabRixSAXHandlerObjectList::Fill(MabERixObject& iObject, MabERixMajorObject& iMajorObject,
                                      MabERixMinorObject& iMinorObject)
{
  iObject._SetCADType(_CADType);

  iMajorObject._SetLockStatus(_bLocked);
  iMajorObject._SetLockOwner(_Locker);
  iMajorObject._SetMajorOID(_ObjectID);

  // The dictionaries' entries are handed over in room of their size; the
  // handler keeps its own room for the next object.
  iMinorObject._SetThumbnail(_ThumbnailPath);
  iMinorObject._ExtraAttributes.TakeCompact(_ExtraAttributes);
  iMinorObject._SetMinorType(_BusType);
  iMinorObject._SetMinorUUID(_UUID);
  iMinorObject._SetMinorOID(_BusID);
  if (const KelUnicodeString* pOldName = iMinorObject._ExtraAttributes.Find("renamedfrom");
      pOldName && !pOldName->IsEmpty())
    iMinorObject._SetOldName(*pOldName);

  if (FAILED(iMinorObject.GetDocumentID(_DocumentID)))
  {
    _DocumentPath.AssignJoined(_DirectoryPath, _FilePath);
    _DocumentID.Assign(_CADType, _Name, _DocumentPath);
    iMinorObject._SetMinorDocumentID(_DocumentID);
  }
  iMinorObject._ElementValues.TakeCompact(_ElementValues);

  FillIn(iObject, iMajorObject, iMinorObject);
}

// Element values fill in the properties the attributes left unset; they
// never overwrite one.
void MabRixSAXHandlerObjectList::FillIn(MabERixObject& iObject, MabERixMajorObject& iMajorObject,
                                        MabERixMinorObject& iMinorObject)
{
  const KelUnicodeStringKelUnicodeStringDico& Values = iMinorObject._ElementValues;
  for (auto It = Values.begin(); It != Values.end(); ++It)
  {
    const KelUnicodeString& Key = It.GetKey();
    if (Key == "Name")
      SetWhenUnset(iObject, &MabERixObject::GetName, &MabERixObject::_SetName, *It);
    else if (Key == "Type")
      SetWhenUnset(iObject, &MabERixObject::GetType, &MabERixObject::_SetType, *It);
    else if (Key == "Rev")
      SetWhenUnset(iMajorObject, &MabERixMajorObject::GetMajorRevision, &MabERixMajorObject::_SetMajorRevision, *It);
    else if (Key == "LockedBy")
      SetWhenUnset(iMajorObject, &MabERixMajorObject::GetLockOwner, &MabERixMajorObject::_SetLockOwner, *It);
    else if (Key == "State")
      SetWhenUnset(iMajorObject, &MabERixMajorObject::GetState, &MabERixMajorObject::_SetState, *It);
    else if (Key == "Lock")
    {
      const unsigned char bLocked = IsTrueText(It->View()) ? TRUE : FALSE;
      SetWhenUnset(iMajorObject, &MabERixMajorObject::GetLockStatus, &MabERixMajorObject::_SetLockStatus, bLocked);
    }
    else if (Key == "Ver")
      SetWhenUnset(iMinorObject, &MabERixMinorObject::GetMinorVersion, &MabERixMinorObject::_SetMinorVersion, *It);
  }
}

// Version, revision and the two paths are kept on purpose: the next object
// reuses them when it does not give its own.
HRESULT MabRixSAXHandlerObjectList::Flush()
{
  _ThumbnailPath.Clear();
  _Locker.Clear();
  _BusType.Clear();
  _ObjectType.Clear();
  _CADType.Clear();
  _CADID.Clear();
  _BusID.Clear();
  _ObjectID.Clear();
  _FullVersion.Clear();
  _Name.Clear();
  _UUID.Clear();
  _bLocked = FALSE;
  _ExtraAttributes.RemoveAll();
  _ElementValues.RemoveAll();
  return S_OK;
}

// The list's own closing element always hands the parser back with success,
// even without a context.
HRESULT MabRixSAXHandlerObjectList::EndElement(const KelUnicodeString& iName)
{
  if (_pObjectContext)
  {
    StopIfNecessary(iName);
    return RixSuccessInit();
  }
  const HRESULT hr = MabRixRaiseUnexpected(E_FAIL);
  return StopIfNecessary(iName) ? RixSuccessInit() : hr;
}
