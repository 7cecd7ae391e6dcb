/// Reads the answer to a lock or unlock command, a list of cadobject elements, into a
/// CAD object context: for each cadobject the object, its current major object and
/// its minor object are got or made, the element's attributes copied onto them, and
/// the major object marked with the outcome the command layer gives. A reason
/// element's text becomes the lock/unlock error of the last cadobject's major object.
/// Hands nothing to its parent. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerLockUnlockExObjectDetailsList_h
#define MabRixSAXHandlerLockUnlockExObjectDetailsList_h

#include <vector>

#include "MabRixCADObjectContext.h"
#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixSAXHandlerLockUnlockExObjectDetailsList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// The context is borrowed, never released. iLockUnlockSuccess goes to
  /// every major object the handler fills.
  MabRixSAXHandlerLockUnlockExObjectDetailsList(MabRixSAXHandlerBase& iParent, MabRixCADObjectContext*& pObjectContext,
                                                unsigned char iLockUnlockSuccess);
  ~MabRixSAXHandlerLockUnlockExObjectDetailsList() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

private:
  HRESULT StartCADObject(const KelISAXAttributeList_var& iAttributes, HRESULT iResult);
  void CopyAttributes(const KelISAXAttributeList_var& iAttributes, MabERixObject& ioObject, MabERixMajorObject& ioMajor,
                      MabERixMinorObject& ioMinor);
  void CopyAttribute(const KelUnicodeString& iName, KelUnicodeString& ioValue, MabERixObject& ioObject,
                     MabERixMajorObject& ioMajor, MabERixMinorObject& ioMinor);
  HRESULT Flush();

  unsigned char _bInCADObject = KelFalse;  ///< set, read by nothing
  unsigned char _bLockUnlockSuccess = KelFalse;
  KelUnicodeString _CurrentElement;  ///< written, read by nothing
  KelUnicodeString _Type;
  KelUnicodeString _Name;
  MabRixCADObjectContext* _pObjectContext = nullptr;
  /// References taken and never given back (a failed cadobject's, a
  /// reason's major object); held here so that they end with the handler.
  std::vector<KelBaseUnknown_var> _KeptReferences;
};

MabRixDeclareTIE(MabRixSAXHandlerLockUnlockExObjectDetailsList)

#endif
