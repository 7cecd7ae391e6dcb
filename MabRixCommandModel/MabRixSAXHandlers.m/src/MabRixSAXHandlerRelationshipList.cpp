#include "MabRixSAXHandlerRelationshipList.h"

#include <new>
#include <string_view>

#include "KelCheck.h"
#include "MabRixAttributeValue.h"
#include "MabRixSAXHandlerAttribute.h"
#include "MabRixStringValue.h"
#include "MabRixStringValueFormat.h"
#include "MabRixTNRObjectContext.h"

MabRixImplementHandler(MabRixSAXHandlerRelationshipList, MabRixSAXHandlerBase)

MabRixSAXHandlerRelationshipList::MabRixSAXHandlerRelationshipList(MabRixSAXHandlerBase& iParent,
                                                                   MabRixTNRObjectContext*& ipObjectContext)
    : MabRixSAXHandlerBase(iParent)
{
  MabRixTNRObjectContext* pObjectContext = ipObjectContext;
  if (!KelCheck(pObjectContext))
    return;
  _pObjectContext = pObjectContext;
}

MabRixSAXHandlerRelationshipList::~MabRixSAXHandlerRelationshipList() { _pObjectContext = nullptr; }

HRESULT MabRixSAXHandlerRelationshipList::StartElement(const KelUnicodeString& iName,
                                                       const KelISAXAttributeList_var& iAttributes)
{
  (void)KelCheck(SUCCEEDED(MabRixSAXHandlerBase::StartElement(iName, iAttributes)));
  if (iName == "relationship")
    return StartRelationship(iAttributes);
  if (iName == "attribute")
    return StartAttribute(iName, iAttributes);
  return S_OK;
}

// Id and kind overwrite the previous relationship's; any other XML
// attribute goes to the attributes, where the first occurrence wins.
HRESULT MabRixSAXHandlerRelationshipList::StartRelationship(const KelISAXAttributeList_var& iAttributes)
{
  unsigned int iAttrListSize = 0;
  const HRESULT hr = !!iAttributes ? iAttributes->GetLength(iAttrListSize) : E_FAIL;
  if (!KelCheck(SUCCEEDED(hr) && iAttrListSize > 0))
    return E_FAIL;
  // Names and values are read in place, in the parser's own text; only what is
  // kept is copied.
  for (unsigned int i = 0; SUCCEEDED(hr) && i < iAttrListSize; ++i)
  {
    std::string_view Name, Value;
    if (FAILED(iAttributes->GetNameView(i, Name)) || FAILED(iAttributes->GetValueView(i, Value)))
      continue;
    if (Name == "cadrelationship")
      _RelationshipKind.Assign(Value);
    else if (Name == "rid")
      _RelationshipID.Assign(Value);
    else
      _Attributes.Insert(KelUnicodeString(Name), KelUnicodeString(Value));
  }
  return hr;
}

HRESULT MabRixSAXHandlerRelationshipList::StartAttribute(const KelUnicodeString& iName,
                                                         const KelISAXAttributeList_var& iAttributes)
{
  MabRixStringValueFormat* pStringValueFormat = new (std::nothrow) MabRixStringValueFormat();
  if (!KelCheck(pStringValueFormat))
    return E_FAIL;
  if (!pStringValueFormat)
    return S_OK;  // no format, no handler: the element is skipped
  // The last attribute's handler, when no one holds it, reads this one with
  // the new format; the previous child lets go of the format it borrowed
  // before that goes.
  RenewChild<MabRixSAXHandlerAttribute>(_spChildHandler, *pStringValueFormat);
  _spAttributeFormat = KelVar<MabRixStringValueFormat>::Adopt(pStringValueFormat);
  if (!_spChildHandler)
    return S_OK;
  const HRESULT hr = _spChildHandler->StartHandlingEvents(iName, iAttributes);
  (void)KelCheck(SUCCEEDED(hr));
  return hr;
}

// An attribute element has been read: a string value joins the attributes
// unless its name is already there.
HRESULT MabRixSAXHandlerRelationshipList::Value(const MabIRixValue_var& iValue)
{
  if (!KelCheck(!!iValue))
    return E_FAIL;
  const MabRixAttributeValue* pValue = KelImplCast<MabRixAttributeValue>(iValue.Get());
  if (!KelCheck(pValue))
    return E_FAIL;
  if (!pValue)
    return S_OK;  // nothing to read
  const std::string_view Type = !!pValue->_Value ? pValue->_Value->GetImpl()->IsA() : "";
  if (Type != "MabRixStringValue")
    return S_OK;  // other kinds of value are not kept
  const MabRixStringValue* pStringValue = KelImplCast<MabRixStringValue>(pValue->_Value.Get());
  if (!KelCheck(pStringValue))
    return E_FAIL;
  if (pStringValue && !_Attributes.HasKey(pValue->_Name))
    _Attributes.Insert(pValue->_Name, pStringValue->_Value);
  return S_OK;
}

HRESULT MabRixSAXHandlerRelationshipList::EndElement(const KelUnicodeString& iName)
{
  if (!KelCheck(_pObjectContext))
    return E_FAIL;
  if (StopIfNecessary(iName) || iName != "relationship")
    return S_OK;
  return EndRelationship();
}

// Kind and id are kept for the next relationship, which reuses them when it
// does not give its own.
HRESULT MabRixSAXHandlerRelationshipList::EndRelationship()
{
  MabERixRelationship* pRelationship =
      _pObjectContext ? _pObjectContext->CreateRelationship(_RelationshipID, _RelationshipKind) : nullptr;
  if (!KelCheck(pRelationship))
    return E_FAIL;
  if (!pRelationship)
    return S_OK;  // nothing to give the attributes to: they wait for the next one
  // The relationship stays the context's: no reference to release. Its
  // attributes replace what it had; the handler's go to it in room of their
  // size, and the handler keeps its own room for the next relationship.
  pRelationship->_Attributes.TakeCompact(_Attributes);
  return S_OK;
}
