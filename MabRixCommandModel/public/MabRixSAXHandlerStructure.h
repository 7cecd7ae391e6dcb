/// Reads the nesting of cadobject elements whose objects already are in a
/// type/name/revision object context. Each relationship element inside an
/// object relates the object that contains it to that object; every object
/// whose nesting level differs from the root level gets its pointer flag.
/// Nothing is handed up: the caller reads the context. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerStructure_h
#define MabRixSAXHandlerStructure_h

#include "KelUnicodeStringList.h"
#include "MabRixSAXHandlerBase.h"

class MabRixTNRObjectContext;

class ExportedByMabRixCommandModel MabRixSAXHandlerStructure : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// ipObjectContext is borrowed: it must outlive the handler. Objects whose
  /// nesting level (0 for the outermost cadobject) is iRootLevel keep their
  /// pointer flag as it is.
  MabRixSAXHandlerStructure(MabRixSAXHandlerBase& iParent, MabRixTNRObjectContext*& ipObjectContext, int iRootLevel);
  ~MabRixSAXHandlerStructure() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  HRESULT EndObject();
  void EndRelationship();

  int _RootLevel;
  int _PointerIndex = -1;                             ///< position of the innermost open cadobject in the stack
  KelUnicodeString _RelationshipID;                   ///< "rid" of the current relationship
  KelUnicodeStringList _ObjectStack;                  ///< "cadid" of every open cadobject, outermost first
  MabRixTNRObjectContext* _pObjectContext = nullptr;  ///< borrowed
};

MabRixDeclareTIE(MabRixSAXHandlerStructure)

#endif
