#include "MabRixSAXHandlerCustomQueryResult.h"

#include <new>

#include "KelCheck.h"
#include "MabRixCustomQueryResultValue.h"
#include "MabRixObjectAttributeValue.h"
#include "MabRixObjectID.h"
#include "MabRixQueryResultSupport.h"
#include "MabRixSAXHandlerObjectAttribute.h"

MabRixImplementHandler(MabRixSAXHandlerCustomQueryResult, MabRixSAXHandlerBase)

namespace
{
// An empty field takes the row element iKey when the row has it.
void FillGap(KelUnicodeString& ioField, const KelUnicodeStringKelUnicodeStringDico& iElements, const char* iKey)
{
  if (ioField.IsEmpty() && iElements.HasKey(iKey))
    ioField = iElements[iKey];
}
}  // namespace

MabRixSAXHandlerCustomQueryResult::MabRixSAXHandlerCustomQueryResult(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pCustomQueryResultValue(new (std::nothrow) MabRixCustomQueryResultValue())
{
}

MabRixSAXHandlerCustomQueryResult::~MabRixSAXHandlerCustomQueryResult()
{
  if (_pCustomQueryResultValue)
    _pCustomQueryResultValue->Release();
}

// A row's attributes are kept here; its content is read by a child started
// on the row element itself.
HRESULT MabRixSAXHandlerCustomQueryResult::StartElement(const KelUnicodeString& iName,
                                                        const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  _CurrentElementName = iName;
  if (iName != "row")
    return S_OK;
  _InRow = 1;
  MabRixReadAttribute(iAttributes, "rowid", _RowID);
  MabRixReadAttribute(iAttributes, "oid", _OID);
  MabRixReadAttribute(iAttributes, "cadtype", _CADType);
  MabRixReadAttribute(iAttributes, "name", _Name);
  MabRixReadAttribute(iAttributes, "revision", _Revision);
  MabRixReadAttribute(iAttributes, "type", _Type);
  // The last row's handler reads this one when no one else holds it.
  RenewChild<MabRixSAXHandlerObjectAttribute>(_spChildHandler);
  const HRESULT hr = !_spChildHandler ? S_OK : _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

// The row's content has arrived: store the row in the context.
HRESULT MabRixSAXHandlerCustomQueryResult::Value(const MabIRixValue_var& iValue)
{
  if (!KelCheck(_pCustomQueryResultValue) || !KelCheck(!!iValue))
    return E_FAIL;
  const MabRixObjectAttributeValue* pValue = KelImplCast<MabRixObjectAttributeValue>(iValue.Get());
  if (!KelCheck(pValue) || !pValue)
    return E_FAIL;
  _ElementValues = pValue->_ElementValues;
  for (auto It = pValue->_Attributes.begin(); It != pValue->_Attributes.end(); ++It)
    if (!_ExtraAttributes.HasKey(It.GetKey()))
      _ExtraAttributes.Insert(It.GetKey(), *It);
  _ThumbnailPath = pValue->_PreviewPath;
  _InRow = 0;
  if (_RowID.IsEmpty())
    return E_FAIL;
  FillGap(_Type, _ElementValues, "Type");
  FillGap(_Name, _ElementValues, "Name");
  FillGap(_Revision, _ElementValues, "Rev");
  FillGap(_Version, _ElementValues, "Ver");
  if (_Type.IsEmpty() || _Name.IsEmpty() || _Revision.IsEmpty())
    return E_FAIL;

  MabRixTNRObjectContext* pContext = _pCustomQueryResultValue ? _pCustomQueryResultValue->GetObjectContext() : nullptr;
  MabERixObject* pObject = pContext ? pContext->CreateObject(_Type, _Name) : nullptr;
  const MabERixObject_var spObject = MabERixObject_var::Adopt(pObject);
  if (!KelCheck(pObject) || !pObject)
    return E_FAIL;
  MabERixMajorObject* pMajorObject = pContext->CreateMajorObject(_Type, _Name, _Revision);
  const MabERixMajorObject_var spMajorObject = MabERixMajorObject_var::Adopt(pMajorObject);
  if (!KelCheck(pMajorObject) || !pMajorObject)
    return E_FAIL;
  pObject->_SetCADType(_CADType);
  pMajorObject->_SetMajorOID(_OID);
  MabERixMinorObject_var spMinorObject;
  if (!_Version.IsEmpty() && !_RowID.IsEmpty())
  {
    _MinorID.Assign(_RowID);
    MabERixMinorObject* pMinorObject = pContext->CreateMinorObject(_MinorID, _Type, _Name, _Revision, _Version, TRUE);
    spMinorObject = MabERixMinorObject_var::Adopt(pMinorObject);
    if (!KelCheck(pMinorObject) || !pMinorObject)
      return E_FAIL;
    pMinorObject->_SetThumbnail(_ThumbnailPath);
  }
  SetLockAndState(*pMajorObject);
  // The row is stored and flushed: the minor object takes the dictionaries,
  // in room of their size, instead of copies.
  if (spMinorObject)
  {
    spMinorObject->_ExtraAttributes.TakeCompact(_ExtraAttributes);
    spMinorObject->_ElementValues.TakeCompact(_ElementValues);
  }
  Flush();
  return S_OK;
}

void MabRixSAXHandlerCustomQueryResult::SetLockAndState(MabERixMajorObject& ioMajorObject) const
{
  for (auto It = _ElementValues.begin(); It != _ElementValues.end(); ++It)
  {
    const KelUnicodeString& Key = It.GetKey();
    if (Key == "LockedBy")
    {
      KelUnicodeString Owner;
      if (FAILED(ioMajorObject.GetLockOwner(Owner)))
        ioMajorObject._SetLockOwner(*It);
    }
    else if (Key == "State")
    {
      KelUnicodeString State;
      if (FAILED(ioMajorObject.GetState(State)))
        ioMajorObject._SetState(*It);
    }
    else if (Key == "Lock")
    {
      unsigned char Status = 0;
      if (FAILED(ioMajorObject.GetLockStatus(Status)))
      {
        KelUnicodeString Text = *It;
        Text.ToLower();
        ioMajorObject._SetLockStatus(Text == "true" ? TRUE : FALSE);
      }
    }
    // "CustomName" is known and deliberately left alone.
  }
}

void MabRixSAXHandlerCustomQueryResult::Flush()
{
  _ThumbnailPath.Clear();
  _RowID.Clear();
  _Name.Clear();
  _OID.Clear();
  _Revision.Clear();
  _CADType.Clear();
  _Type.Clear();
  _Version.Clear();
  _ExtraAttributes.RemoveAll();
  _ElementValues.RemoveAll();
}

HRESULT MabRixSAXHandlerCustomQueryResult::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pCustomQueryResultValue))
    return E_FAIL;
  if (!StopIfNecessary(iName))
    return S_OK;
  const MabIRixValue_var spValue(_pCustomQueryResultValue);
  (void)KelCheck(!!_spParentHandler);
  return !!_spParentHandler ? _spParentHandler->Value(spValue) : S_OK;
}
