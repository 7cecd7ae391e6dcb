// One cadobject of an object list read from a tree (libxml2 or pugixml) and
// committed to a TNR context the way the object list handler commits it.
// The tree baselines share it so that they differ only in the tree.
#ifndef MabRixBenchTreeObject_h
#define MabRixBenchTreeObject_h

#include "KelUnicodeString.h"
#include "MabRixPath.h"
#include "MabRixTNRObjectContext.h"

class MabRixBenchTreeObject
{
public:
  // An attribute of the cadobject element.
  void Attribute(const char* iName, const KelUnicodeString& iValue);
  // Called before the children of the element.
  void BeginContent();
  // An <attribute><name/><value/></attribute> child.
  void NamedAttribute(const KelUnicodeString& iName, const KelUnicodeString& iValue);
  // Any other element child with its text.
  void Element(const char* iName, const KelUnicodeString& iValue);
  // Creates the entities and leaves the object ready for the next element.
  void Commit(MabRixTNRObjectContext& ioContext);

private:
  bool _Locked = false;
  KelUnicodeString _Locker, _BusType, _ObjectType, _CadType, _CadId, _BusId, _Oid, _FullVersion, _Version, _Revision,
      _Name, _Uuid;
  MabRixPath _Directory, _File, _Thumbnail;
  KelUnicodeStringKelUnicodeStringDico _Extra, _Elements, _Named;
};

#endif
