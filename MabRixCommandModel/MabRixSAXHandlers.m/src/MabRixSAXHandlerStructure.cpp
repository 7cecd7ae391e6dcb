#include "MabRixSAXHandlerStructure.h"

#include <climits>

#include "KelCheck.h"
#include "MabRixTNRObjectContext.h"

MabRixImplementHandler(MabRixSAXHandlerStructure, MabRixSAXHandlerBase)

MabRixSAXHandlerStructure::MabRixSAXHandlerStructure(MabRixSAXHandlerBase& iParent,
                                                     MabRixTNRObjectContext*& ipObjectContext, int iRootLevel)
    : MabRixSAXHandlerBase(iParent), _RootLevel(iRootLevel)
{
  MabRixTNRObjectContext* pObjectContext = ipObjectContext;
  if (!KelCheck(pObjectContext))
    return;
  _pObjectContext = pObjectContext;
}

MabRixSAXHandlerStructure::~MabRixSAXHandlerStructure() { _pObjectContext = nullptr; }

HRESULT MabRixSAXHandlerStructure::StartElement(const KelUnicodeString& iName,
                                                const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  if (iName == "cadobject")
  {
    // An object without "cadid" is pushed all the same, with an empty id.
    KelUnicodeString CADID;
    if (!!iAttributes)
      iAttributes->GetValue("cadid", CADID);
    _ObjectStack.Push(CADID);
    if (_PointerIndex < INT_MAX)
      ++_PointerIndex;
  }
  // Without "rid" the relationship id keeps what it held.
  if (iName == "relationship" && !!iAttributes)
    iAttributes->GetValue("rid", _RelationshipID);
  return S_OK;
}

HRESULT MabRixSAXHandlerStructure::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pObjectContext))
    return E_FAIL;
  // The handler's own closing tag hands the parser back and is then read
  // like any other.
  StopIfNecessary(iName);
  if (iName == "cadobject")
    return EndObject();
  if (iName == "relationship")
    EndRelationship();
  return S_OK;
}

HRESULT MabRixSAXHandlerStructure::EndObject()
{
  if (!KelCheck(_PointerIndex >= 0))
    return E_FAIL;
  const MabRixObjectID ID(_ObjectStack.Pop());
  KelBaseUnknown_var spObject;
  if (_pObjectContext)
    spObject = _pObjectContext->GetMinorObject(ID);
  MabERixMinorObject* pPointerObject = KelImplCast<MabERixMinorObject>(spObject.Get());
  if (!pPointerObject)
    (void)KelCheck(pPointerObject);
  else if (_RootLevel != _PointerIndex)
    pPointerObject->_bPointer = TRUE;

  if (_PointerIndex > INT_MIN + 1)  // keeps _PointerIndex - 1 defined
    --_PointerIndex;
  if (!KelCheck(_PointerIndex >= -1))
    return E_FAIL;
  return S_OK;
}

// Relates the enclosing object to the innermost open one.
void MabRixSAXHandlerStructure::EndRelationship()
{
  const MabRixObjectID From(_ObjectStack[_PointerIndex - 1]);
  const MabRixObjectID To(_ObjectStack[_PointerIndex]);
  if (_pObjectContext)
    if (MabERixRelation* pRelation = _pObjectContext->CreateRelation(From, _RelationshipID, To))
      pRelation->Release();
  _RelationshipID.Clear();
}
