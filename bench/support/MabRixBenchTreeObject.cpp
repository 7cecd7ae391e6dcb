#include "MabRixBenchTreeObject.h"

#include <cstring>

void MabRixBenchTreeObject::Attribute(const char* iName, const KelUnicodeString& iValue)
{
  if (!std::strcmp(iName, "busid"))
    _BusId = iValue;
  else if (!std::strcmp(iName, "bustype"))
    _BusType = iValue;
  else if (!std::strcmp(iName, "cadid"))
    _CadId = iValue;
  else if (!std::strcmp(iName, "locker"))
    _Locker = iValue;
  else if (!std::strcmp(iName, "zqtype"))
    _ObjectType = iValue;
  else if (!std::strcmp(iName, "zqversion"))
    _FullVersion = iValue;
  else if (!std::strcmp(iName, "name"))
    _Name = iValue;
  else if (!std::strcmp(iName, "oid"))
    _Oid = iValue;
  else if (!std::strcmp(iName, "type"))
    _CadType = iValue;
  else if (!std::strcmp(iName, "uuid"))
    _Uuid = iValue;
  else if (!std::strcmp(iName, "islocked"))
  {
    KelUnicodeString Lower = iValue;
    Lower.ToLower();
    _Locked = Lower == "true";
  }
  else if (!std::strcmp(iName, "dirname"))
  {
    const int Bracket = iValue.SearchSubString("]", iValue.GetLengthInChar(), KelUnicodeString::KelSearchBackward);
    const int Bar = iValue.SearchSubString("|", 0, KelUnicodeString::KelSearchForward);
    if (Bracket >= 0 && Bar >= 0 && iValue.SubString(0, 7) == "[ALIAS|")
    {
      KelUnicodeString Alias("KelDLN://");
      Alias += iValue.SubString(Bar + 1, Bracket - Bar - 1);
      _Directory = MabRixPath(Alias);
    }
    else
      _Directory = MabRixPath(iValue);
  }
  else if (!std::strcmp(iName, "filename"))
    _File = MabRixPath(iValue);
  else
    _Extra.Insert(KelUnicodeString(iName), iValue);
}

void MabRixBenchTreeObject::BeginContent()
{
  _Elements.RemoveAll();
  _Named.RemoveAll();
}

void MabRixBenchTreeObject::NamedAttribute(const KelUnicodeString& iName, const KelUnicodeString& iValue)
{
  _Named.Insert(iName, iValue);
}

void MabRixBenchTreeObject::Element(const char* iName, const KelUnicodeString& iValue)
{
  _Elements.Insert(KelUnicodeString(iName), iValue);
  if (!std::strcmp(iName, "preview"))
    _Thumbnail = MabRixPath(iValue);
}

void MabRixBenchTreeObject::Commit(MabRixTNRObjectContext& ioContext)
{
  for (auto it = _Named.begin(); it != _Named.end(); ++it)
    _Extra.Insert(it.GetKey(), *it);
  if (const KelUnicodeString* pVersion = _Elements.Find("Ver"))
    _Version = *pVersion;
  if (const KelUnicodeString* pRevision = _Elements.Find("Rev"))
    _Revision = *pRevision;
  const int Dot =
      _FullVersion.SearchSubString(".", _FullVersion.GetLengthInChar(), KelUnicodeString::KelSearchBackward);
  if (Dot >= 0)
  {
    _Revision = _FullVersion.SubString(0, Dot);
    _Version = _FullVersion.SubString(Dot + 1, _FullVersion.GetLengthInChar() - Dot - 1);
  }
  MabERixObject_var spObject = MabERixObject_var::Adopt(ioContext.CreateObject(_ObjectType, _Name));
  MabERixMajorObject_var spMajor =
      MabERixMajorObject_var::Adopt(ioContext.CreateMajorObject(_ObjectType, _Name, _Revision));
  MabERixMinorObject_var spMinor = MabERixMinorObject_var::Adopt(
      ioContext.CreateMinorObject(MabRixObjectID(_CadId), _ObjectType, _Name, _Revision, _Version, TRUE));
  if (!spObject || !spMajor || !spMinor)
    return;
  spObject->_SetCADType(_CadType);
  spMajor->_SetLockStatus(_Locked ? TRUE : FALSE);
  spMajor->_SetLockOwner(_Locker);
  spMajor->_SetMajorOID(_Oid);
  spMinor->_SetThumbnail(_Thumbnail);
  spMinor->_ExtraAttributes = _Extra;
  spMinor->_SetMinorType(_BusType);
  spMinor->_SetMinorUUID(_Uuid);
  spMinor->_SetMinorOID(_BusId);
  if (const KelUnicodeString* pOld = _Extra.Find("renamedfrom"); pOld && !pOld->IsEmpty())
    spMinor->_SetOldName(*pOld);
  MabRixDocumentIDList Ids;
  if (FAILED(spMinor->GetDocumentIDList(Ids)))
    spMinor->_SetMinorDocumentID(MabRixDocumentID::Create(_CadType, _Name, _Directory / _File));
  spMinor->_ElementValues = _Elements;
  _Extra.RemoveAll();
}
