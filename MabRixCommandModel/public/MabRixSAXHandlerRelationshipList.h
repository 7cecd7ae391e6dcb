/// Reads a list of relationship elements into a type/name/revision object
/// context: each one is created with its id and kind and given the attributes
/// its XML attributes and attribute elements carry. Nothing is handed up: the
/// caller reads the context. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerRelationshipList_h
#define MabRixSAXHandlerRelationshipList_h

#include "KelDicos.h"
#include "MabRixSAXHandlerBase.h"

class MabRixStringValueFormat;
class MabRixTNRObjectContext;

class ExportedByMabRixCommandModel MabRixSAXHandlerRelationshipList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// ipObjectContext is borrowed: it must outlive the handler.
  MabRixSAXHandlerRelationshipList(MabRixSAXHandlerBase& iParent, MabRixTNRObjectContext*& ipObjectContext);
  ~MabRixSAXHandlerRelationshipList() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

private:
  HRESULT StartRelationship(const KelISAXAttributeList_var& iAttributes);
  HRESULT StartAttribute(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes);
  HRESULT EndRelationship();

  KelUnicodeString _RelationshipKind;                 ///< "cadrelationship"
  KelUnicodeString _RelationshipID;                   ///< "rid"
  MabRixTNRObjectContext* _pObjectContext = nullptr;  ///< borrowed
  KelUnicodeStringKelUnicodeStringDico _Attributes;   ///< of the current relationship; first wins
  /// The format the current attribute child reads its value with: made fresh
  /// for each attribute element, it lives as long as that child may use it.
  KelVar<MabRixStringValueFormat> _spAttributeFormat;
};

MabRixDeclareTIE(MabRixSAXHandlerRelationshipList)

#endif
