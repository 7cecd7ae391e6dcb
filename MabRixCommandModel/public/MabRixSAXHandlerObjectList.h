/// Reads a list of cadobject elements into a type/name/revision object
/// context: for each one the object, its major object (the revision) and its
/// minor object (the version) are created or found and filled. The attributes
/// of cadobject are read here, its content by a MabRixSAXHandlerObjectAttribute
/// child; the object is committed when cadobject closes. Nothing is handed up:
/// the caller reads the context. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerObjectList_h
#define MabRixSAXHandlerObjectList_h

#include <string_view>

#include "KelDicos.h"
#include "MabRixDocumentID.h"
#include "MabRixObjectID.h"
#include "MabRixPath.h"
#include "MabRixSAXHandlerBase.h"

class MabERixMajorObject;
class MabERixMinorObject;
class MabERixObject;
class MabRixObjectAttributeValue;
class MabRixTNRObjectContext;

class ExportedByMabRixCommandModel MabRixSAXHandlerObjectList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  /// ipObjectContext is borrowed: it must outlive the handler.
  MabRixSAXHandlerObjectList(MabRixSAXHandlerBase& iParent, MabRixTNRObjectContext*& ipObjectContext);
  ~MabRixSAXHandlerObjectList() override;

  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT Value(const MabIRixValue_var& iValue) override;

private:
  HRESULT StartObject(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes);
  void ReadAttributes(KelISAXAttributeList& iAttributes, unsigned int iCount);
  void ReadAttribute(std::string_view iName, std::string_view iValue);
  HRESULT TakeContent(const MabRixObjectAttributeValue& iContent);
  HRESULT CreateEntities(MabERixObject*& opObject, MabERixMajorObject*& opMajorObject,
                         MabERixMinorObject*& opMinorObject);
  void SplitFullVersion();
  void Fill(MabERixObject& iObject, MabERixMajorObject& iMajorObject, MabERixMinorObject& iMinorObject);
  void FillIn(MabERixObject& iObject, MabERixMajorObject& iMajorObject, MabERixMinorObject& iMinorObject);
  HRESULT Flush();

  /// Per object; reset after each one, except version, revision and the two
  /// paths, which an object that lacks them takes from the previous one.
  MabRixPath _ThumbnailPath;
  unsigned char _bLocked = KelFalse;
  KelUnicodeString _Locker;
  KelUnicodeString _BusType;
  KelUnicodeString _ObjectType;
  KelUnicodeString _CADType;
  KelUnicodeString _CADID;
  KelUnicodeString _BusID;
  KelUnicodeString _ObjectID;
  KelUnicodeString _FullVersion;
  KelUnicodeString _Version;
  KelUnicodeString _Revision;
  KelUnicodeString _Name;
  KelUnicodeString _UUID;
  MabRixPath _DirectoryPath;
  MabRixPath _FilePath;
  KelUnicodeStringKelUnicodeStringDico _ExtraAttributes;  ///< attribute name to value; first wins
  KelUnicodeStringKelUnicodeStringDico _ElementValues;    ///< element name to text
  MabRixTNRObjectContext* _pObjectContext = nullptr;      ///< borrowed

  /// Built again for every object in the room of the last one.
  MabRixObjectID _MinorID;
  MabRixPath _DocumentPath;
  MabRixDocumentID _DocumentID;
};

MabRixDeclareTIE(MabRixSAXHandlerObjectList)

#endif
