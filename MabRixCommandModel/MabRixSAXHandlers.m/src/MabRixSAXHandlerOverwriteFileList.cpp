#include "MabRixSAXHandlerOverwriteFileList.h"

#include <new>

#include "KelCheck.h"
#include "MabRixStringMapValue.h"

MabRixImplementHandler(MabRixSAXHandlerOverwriteFileList, MabRixSAXHandlerBase)

MabRixSAXHandlerOverwriteFileList::MabRixSAXHandlerOverwriteFileList(MabRixSAXHandlerBase& iParent)
    : MabRixSAXHandlerBase(iParent), _pMapValue(new (std::nothrow) MabRixStringMapValue())
{
}

MabRixSAXHandlerOverwriteFileList::~MabRixSAXHandlerOverwriteFileList()
{
  if (_pMapValue)
  {
    _pMapValue->Release();
    _pMapValue = nullptr;
  }
}

HRESULT MabRixSAXHandlerOverwriteFileList::Characters(const KelUnicodeString&) { return S_OK; }

HRESULT MabRixSAXHandlerOverwriteFileList::StartElement(const KelUnicodeString& iName,
                                                        const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  if (!KelCheck(_pMapValue))
    return E_FAIL;
  if (iName != "filedetails")
    return S_OK;

  // A missing attribute (or attribute list) leaves its text empty, and an
  // entry needs both texts.
  KelUnicodeString BusID, FileName;
  if (!!iAttributes)
  {
    iAttributes->GetValue("busid", BusID);
    iAttributes->GetValue("filename", FileName);
  }
  // The first file name given for a busid is the one kept.
  if (_pMapValue && !BusID.IsEmpty() && !FileName.IsEmpty())
    _pMapValue->_Value.Insert(BusID, FileName);
  return S_OK;
}

HRESULT MabRixSAXHandlerOverwriteFileList::EndElement(const KelUnicodeString& iName)
{
  if (!StopIfNecessary(iName))
    return S_OK;
  const MabIRixValue_var spValue(_pMapValue);
  if (!KelCheck(!!_spParentHandler))
    return S_OK;
  return _spParentHandler->Value(spValue);
}
