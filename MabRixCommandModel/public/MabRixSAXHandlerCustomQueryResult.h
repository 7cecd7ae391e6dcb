/// Reads the rows of a custom query. Each "row" names one object revision,
/// and possibly one version of it, by its attributes (rowid, oid, cadtype,
/// name, revision, type) and by the elements a MabRixSAXHandlerObjectAttribute
/// child reads from it ("Type", "Name", "Rev", "Ver", "Lock", "State",
/// "LockedBy", attribute elements, preview). The handler creates the object,
/// major object and minor object in the context of its
/// MabRixCustomQueryResultValue, which goes to the parent when the handler's
/// own element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerCustomQueryResult_h
#define MabRixSAXHandlerCustomQueryResult_h

#include "KelDicos.h"
#include "MabRixObjectID.h"
#include "MabRixPath.h"
#include "MabRixSAXHandlerBase.h"

class MabERixMajorObject;
class MabRixCustomQueryResultValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerCustomQueryResult : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerCustomQueryResult(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerCustomQueryResult() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

  /// The result under construction.
  MabRixCustomQueryResultValue* GetCustomQueryResultValue() const { return _pCustomQueryResultValue; }

private:
  /// Lock owner, state and lock status from the row's elements, each only
  /// when the major object does not have it yet.
  void SetLockAndState(MabERixMajorObject& ioMajorObject) const;
  /// Clears the row state once a row is stored. A rejected row is not
  /// flushed: what it brought is carried into the next row.
  void Flush();

  unsigned char _InRow = 0;
  KelUnicodeString _CurrentElementName;
  MabRixPath _ThumbnailPath;
  KelUnicodeString _RowID;
  KelUnicodeString _Name;
  KelUnicodeString _OID;
  KelUnicodeString _Revision;
  KelUnicodeString _CADType;
  KelUnicodeString _Type;
  KelUnicodeString _Version;
  /// Accumulated over every row since the last Flush; the first value of a
  /// key stays.
  KelUnicodeStringKelUnicodeStringDico _ExtraAttributes;
  KelUnicodeStringKelUnicodeStringDico _ElementValues;
  MabRixCustomQueryResultValue* _pCustomQueryResultValue = nullptr;
  MabRixObjectID _MinorID;  ///< built again for every row in the room of the last one
};

MabRixDeclareTIE(MabRixSAXHandlerCustomQueryResult)

#endif
