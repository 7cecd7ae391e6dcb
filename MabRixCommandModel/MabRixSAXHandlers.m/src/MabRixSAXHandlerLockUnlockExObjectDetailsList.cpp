#include "MabRixSAXHandlerLockUnlockExObjectDetailsList.h"

#include <new>

#include "KelCheck.h"
#include "KelError.h"
#include "MabRixHandlerSteps.h"
#include "MabRixSAXHandlerString.h"
#include "MabRixStringValue.h"

MabRixImplementHandler(MabRixSAXHandlerLockUnlockExObjectDetailsList, MabRixSAXHandlerBase)

namespace
{
const int SearchForward = 2;
}

MabRixSAXHandlerLockUnlockExObjectDetailsList::MabRixSAXHandlerLockUnlockExObjectDetailsList(
    MabRixSAXHandlerBase& iParent, MabRixCADObjectContext*& pObjectContext, unsigned char iLockUnlockSuccess)
    : MabRixSAXHandlerBase(iParent), _bLockUnlockSuccess(iLockUnlockSuccess)
{
  if (KelCheck(pObjectContext))
    _pObjectContext = pObjectContext;
}

MabRixSAXHandlerLockUnlockExObjectDetailsList::~MabRixSAXHandlerLockUnlockExObjectDetailsList()
{
  _pObjectContext = nullptr;
}

// Nothing calls it: type and name stay for a later reason element.
HRESULT MabRixSAXHandlerLockUnlockExObjectDetailsList::Flush()
{
  _Type = "";
  _Name = "";
  return S_OK;
}

HRESULT MabRixSAXHandlerLockUnlockExObjectDetailsList::StartElement(const KelUnicodeString& iName,
                                                                    const KelISAXAttributeList_var& iAttributes)
{
  const HRESULT Result = MabRixStartInContext(_pObjectContext, iName, iAttributes);

  _CurrentElement = iName;
  if (iName == "cadobject")
    return StartCADObject(iAttributes, Result);
  if (iName != "reason")
    return Result;

  _spChildHandler = MabIRixSAXHandler_var::Adopt(new (std::nothrow) MabRixSAXHandlerString(*this));
  if (!_spChildHandler)
    return Result;
  const HRESULT hr = _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

// Gets or makes the three objects of one cadobject and copies its
// attributes onto them in one pass, in document order.
HRESULT MabRixSAXHandlerLockUnlockExObjectDetailsList::StartCADObject(const KelISAXAttributeList_var& iAttributes,
                                                                      HRESULT iResult)
{
  HRESULT Result = iResult;
  _bInCADObject = TRUE;
  if (FAILED(Result) || !iAttributes)
    Result = MabRixRaiseUnexpected(Result);

  // Type and name are required and must not be empty.
  if (SUCCEEDED(Result))
    Result = MabRixRequireText(Result, iAttributes, "type", _Type);
  if (SUCCEEDED(Result))
    Result = MabRixRequireText(Result, iAttributes, "name", _Name);

  MabERixObject* pObject = nullptr;
  MabERixMajorObject* pMajor = nullptr;
  MabERixMinorObject* pMinor = nullptr;
  if (SUCCEEDED(Result) && !(pObject = _pObjectContext->CreateObject(_Type, _Name)))
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && !(pMajor = _pObjectContext->CreateMajorObject(_Type, _Name)))
    Result = MabRixRaiseUnexpected(Result);
  if (SUCCEEDED(Result) && !(pMinor = _pObjectContext->CreateMinorObject(_Type, _Name)))
    Result = MabRixRaiseUnexpected(Result);

  if (!pMinor || !pMajor || !pObject)
  {
    // The fixed failure; whatever was made is not given back.
    for (KelBaseUnknown* pKept : {static_cast<KelBaseUnknown*>(pObject), static_cast<KelBaseUnknown*>(pMajor)})
      if (pKept)
        _KeptReferences.push_back(KelBaseUnknown_var::Adopt(pKept));
    return E_FAIL;
  }

  CopyAttributes(iAttributes, *pObject, *pMajor, *pMinor);
  pMajor->_SetLockUnlockSuccess(_bLockUnlockSuccess);

  pObject->Release();
  pMajor->Release();
  pMinor->Release();
  return Result;
}

// Every attribute the three objects take, in document order; the document
// ID, unless the minor object has one, from the directory and file names.
void MabRixSAXHandlerLockUnlockExObjectDetailsList::CopyAttributes(const KelISAXAttributeList_var& iAttributes,
                                                                   MabERixObject& ioObject, MabERixMajorObject& ioMajor,
                                                                   MabERixMinorObject& ioMinor)
{
  KelUnicodeString DirName;
  KelUnicodeString FileName;
  unsigned int Count = 0;
  iAttributes->GetLength(Count);
  for (unsigned int i = 0; i < Count; ++i)
  {
    KelUnicodeString Name;
    KelUnicodeString Value;
    iAttributes->GetName(i, Name);
    iAttributes->GetValue(i, Value);
    if (Name == "dirname")
      DirName = Value;
    else if (Name == "filename")
      FileName = Value;
    else
      CopyAttribute(Name, Value, ioObject, ioMajor, ioMinor);
  }

  MabRixDocumentID DocumentID;
  if (FAILED(ioMinor.GetDocumentID(DocumentID)))
  {
    const MabRixPath Path = MabRixPath(DirName) / FileName;
    if (Path.IsValid())
      ioMinor._SetMinorDocumentID(MabRixDocumentID::Create(_Type, _Name, Path));
  }
}

// One attribute onto the object it belongs to; others are not read.
void MabRixSAXHandlerLockUnlockExObjectDetailsList::CopyAttribute(const KelUnicodeString& iName,
                                                                  KelUnicodeString& ioValue, MabERixObject& ioObject,
                                                                  MabERixMajorObject& ioMajor,
                                                                  MabERixMinorObject& ioMinor)
{
  if (iName == "action")
    ioMinor._SetAction(ioValue);
  else if (iName == "bustype" || iName == "zqtype")
    ioObject._SetType(ioValue);
  else if (iName == "busrevision")
    ioMajor._SetMajorRevision(ioValue);
  else if (iName == "busid")
    ioMajor._SetMajorOID(ioValue);
  else if (iName == "lockedby")
    ioMajor._SetLockOwner(ioValue);
  else if (iName == "islocked")
  {
    ioValue.ToLower();
    ioMajor._SetLockStatus(ioValue == "true" ? TRUE : FALSE);
  }
  else if (iName == "zqversion" && !ioValue.IsEmpty())
  {
    // Revision, then the minor version behind the first ".".
    const int Dot = ioValue.SearchSubString(".", 0, SearchForward);
    if (Dot >= 0)
    {
      ioMinor._SetMinorVersion(ioValue.SubString(Dot + 1, ioValue.GetLengthInChar() - Dot - 1));
      ioMajor._SetMajorRevision(ioValue.SubString(0, Dot));
    }
    else
      ioMajor._SetMajorRevision(ioValue);
  }
}

// The text of a reason element: the lock/unlock error of the last
// cadobject's major object.
HRESULT MabRixSAXHandlerLockUnlockExObjectDetailsList::Value(const MabIRixValue_var& iValue)
{
  HRESULT Result = RixSuccessInit();
  if (!iValue && !KelCheck(!!iValue))
    return Result;
  if (iValue->GetImpl()->IsA() != KelUnicodeString("MabRixStringValue"))
    return Result;

  MabRixStringValue* pStringValue = KelImplCast<MabRixStringValue>(iValue.Get());
  if (!KelCheck(pStringValue))
    return E_FAIL;
  const KelUnicodeString Text = pStringValue ? pStringValue->_Value : KelUnicodeString();

  if (SUCCEEDED(Result) && _pObjectContext)
  {
    if (MabERixMajorObject* pMajor = _pObjectContext->CreateMajorObject(_Type, _Name))
    {
      pMajor->_SetLockUnlockError(Text);
      _KeptReferences.push_back(KelBaseUnknown_var::Adopt(pMajor));  // not given back
      return Result;
    }
  }
  return MabRixRaiseUnexpected(Result);
}

HRESULT MabRixSAXHandlerLockUnlockExObjectDetailsList::EndElement(const KelUnicodeString& iName)
{
  HRESULT Result = RixSuccessInit();
  if (SUCCEEDED(Result) && _pObjectContext)
  {
    StopIfNecessary(iName);
    return Result;
  }
  Result = MabRixRaiseUnexpected(Result);
  StopIfNecessary(iName);
  return Result;
}
