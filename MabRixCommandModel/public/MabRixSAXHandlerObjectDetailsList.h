/// Reads the answer to an object-details command, a list of cadobject elements,
/// straight into a CAD object context: for each cadobject the object, its current
/// major object and its minor object are got or made and their properties set from the
/// element's attributes, its revisioninfo and access records and its text elements.
/// Hands nothing to its parent. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerObjectDetailsList_h
#define MabRixSAXHandlerObjectDetailsList_h

#include <vector>

#include "MabRixCADObjectContext.h"
#include "MabRixDocumentID.h"
#include "MabRixObjectDetailsResponse.h"
#include "MabRixObjectID.h"
#include "MabRixPath.h"
#include "MabRixSAXHandlerBase.h"

class MabRixStringValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerObjectDetailsList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// The context is borrowed, never released.
  MabRixSAXHandlerObjectDetailsList(MabRixSAXHandlerBase& iParent, MabRixCADObjectContext*& pObjectContext);
  ~MabRixSAXHandlerObjectDetailsList() override;

  /// Optional: the response that says whether UUID conflicts can be resolved
  /// (borrowed, never released).
  HRESULT SetObjDetailsResponsePtr(MabRixObjectDetailsResponse* iResponse);

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

private:
  struct CADEntities;

  // The steps of a cadobject's start, in order.
  HRESULT StartCADObject(const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  HRESULT ReadIdentity(const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  HRESULT CreateEntities(CADEntities& oEntities, HRESULT iResult);
  HRESULT SetCurrentRevision(CADEntities& ioEntities, HRESULT iResult);
  HRESULT ReadMinorDetails(const KelISAXAttributeList_var& iAttributes, MabERixMinorObject* ipMinor,
                           KelUnicodeString& ioScratch, HRESULT iResult);
  void ReadLocksAndIdentifiers(const KelISAXAttributeList_var& iAttributes, CADEntities& ioEntities,
                               KelUnicodeString& ioScratch);
  void SetDocumentID(const KelISAXAttributeList_var& iAttributes, MabERixMinorObject* ipMinor,
                     KelUnicodeString& ioScratch);
  void AddModificationFlags(const KelISAXAttributeList_var& iAttributes, MabERixMinorObject* ipMinor,
                            KelUnicodeString& ioScratch, HRESULT iResult);
  // The steps of a revision record's start.
  HRESULT StartRevisionInfo(const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  HRESULT MarkRevision(const KelUnicodeString& iNextMinorVersion, bool ibNext, MabERixMajorObject*& oMajor,
                       HRESULT iResult);
  void ReadRevisionAccess(const KelISAXAttributeList_var& iAttributes, MabERixMajorObject* ipMajor);
  // The steps of a text element's value.
  HRESULT AddElementValue(const MabRixObjectID& iID, const MabRixStringValue* ipText, HRESULT iResult);
  HRESULT SetObjectType(const MabRixObjectID& iID, const MabRixStringValue* ipText, HRESULT iResult);
  HRESULT SetMajorState(const MabRixObjectID& iID, const MabRixStringValue* ipText, HRESULT iResult);
  HRESULT StartTextElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  HRESULT Flush();
  HRESULT FlushRevInfo();
  void EndCADObject();

  unsigned char _bInCADObject = KelFalse;
  unsigned char _bInRevisionInfo = KelFalse;  ///< kept up to date, read by nothing
  KelUnicodeString _CurrentElement;
  KelUnicodeString _Type;
  KelUnicodeString _Name;
  KelUnicodeString _Revision;
  KelUnicodeString _RevInfoRevision;
  KelUnicodeString _Message;
  MabRixCADObjectContext* _pObjectContext = nullptr;
  MabRixObjectDetailsResponse* _pObjDetailsResponse = nullptr;
  /// References a revision record takes and never gives back; held here so
  /// that they end with the handler.
  std::vector<KelBaseUnknown_var> _KeptReferences;

  /// Built again for every use in the room of the last one.
  KelUnicodeString _Scratch;  ///< the attributes of a cadobject, one after the other
  KelUnicodeString _Directory;
  MabRixObjectID _CurrentID;  ///< of _Type and _Name
  MabRixPath _DocumentPath;
  MabRixDocumentID _DocumentID;
};

MabRixDeclareTIE(MabRixSAXHandlerObjectDetailsList)

#endif
