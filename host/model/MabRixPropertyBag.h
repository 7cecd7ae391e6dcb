/// The properties of an object-model entity that have been set, in the order
/// they were first set. A property is known by its field name ("CADType",
/// "LockStatus", "MinorDocumentID"...) and holds one typed value. Setting a
/// property again replaces its value and keeps its place. Reading a property
/// that was never set, or reading it as another type, fails.
///
/// An entity carries a dozen properties, most of them short texts, and a large
/// context holds millions of entities: the values are kept serialized in one
/// contiguous block per entity, each record a property id, the value's type,
/// its length and its bytes. Values are decoded when read; GetSetProperties
/// gives them back as MabRixProperty items. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixPropertyBag_h
#define MabRixPropertyBag_h

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <variant>

#include "KelResult.h"
#include "KelUnicodeString.h"
#include "KelUnicodeStringList.h"
#include "MabRixDocumentID.h"
#include "MabRixPath.h"

class MabRixArena;

/// Value of a property: a text, a flag (FALSE/TRUE), a list of texts, a path
/// or a document ID.
typedef std::variant<KelUnicodeString, unsigned char, KelUnicodeStringList, MabRixPath, MabRixDocumentID>
    MabRixPropertyValue;

struct MabRixProperty
{
  const char* _Name;  ///< field name, a literal of the entity class
  MabRixPropertyValue _Value;
};

/// Every property field name of the entity classes; a property is stored
/// under its position here.
inline constexpr const char* MabRixPropertyNames[] = {"Type",
                                                      "Name",
                                                      "CADType",
                                                      "CurrentMajorRevision",
                                                      "NextMajorRevision",
                                                      "LockOwner",
                                                      "LockStatus",
                                                      "ConnectedFolder",
                                                      "NextMinorVersion",
                                                      "MajorRevision",
                                                      "OverwriteAccess",
                                                      "CreateVersionAccess",
                                                      "OverwriteError",
                                                      "State",
                                                      "MajorOID",
                                                      "LockUnlockSuccess",
                                                      "LockUnlockError",
                                                      "MinorType",
                                                      "MinorVersion",
                                                      "Status",
                                                      "MinorOID",
                                                      "MinorUUID",
                                                      "UUIDConflict",
                                                      "MinorDocumentID",
                                                      "CanResolveUUIDConflict",
                                                      "Thumbnail",
                                                      "OldName",
                                                      "Action"};

typedef unsigned char MabRixPropertyId;

void MabRixUnknownPropertyName();  // never defined: an unknown name does not compile

/// The id of a field name, computed at compile time.
consteval MabRixPropertyId MabRixPropertyIdOf(std::string_view iName)
{
  for (std::size_t i = 0; i < std::size(MabRixPropertyNames); ++i)
    if (iName == MabRixPropertyNames[i])
      return static_cast<MabRixPropertyId>(i);
  MabRixUnknownPropertyName();
  return 0;
}

/// The set properties, in the order of first setting. An iterator decodes
/// the property it points at; the list stays valid while the entity is
/// neither changed nor destroyed.
class MabRixPropertyList
{
public:
  class const_iterator
  {
  public:
    typedef std::input_iterator_tag iterator_category;
    typedef MabRixProperty value_type;
    typedef std::ptrdiff_t difference_type;
    typedef const MabRixProperty* pointer;
    typedef const MabRixProperty& reference;

    explicit const_iterator(const unsigned char* ipRecord) : _pRecord(ipRecord) {}
    const MabRixProperty& operator*() const;
    const MabRixProperty* operator->() const { return &**this; }
    const_iterator& operator++();
    bool operator==(const const_iterator& iOther) const { return _pRecord == iOther._pRecord; }
    bool operator!=(const const_iterator& iOther) const { return _pRecord != iOther._pRecord; }

  private:
    const unsigned char* _pRecord;
    mutable MabRixProperty _Current{nullptr, MabRixPropertyValue()};
  };

  MabRixPropertyList(const unsigned char* ipBegin, const unsigned char* ipEnd) : _pBegin(ipBegin), _pEnd(ipEnd) {}

  const_iterator begin() const { return const_iterator(_pBegin); }
  const_iterator end() const { return const_iterator(_pEnd); }
  std::size_t size() const;
  bool empty() const { return _pBegin == _pEnd; }
  /// The property at iPosition (< size()), decoded.
  MabRixProperty operator[](std::size_t iPosition) const;

private:
  const unsigned char* _pBegin;
  const unsigned char* _pEnd;
};

/// The block lies in the arena of the entity's store, given to each change:
/// the bag itself is 16 bytes and frees nothing (the arena frees its blocks
/// all at once).
class MabRixPropertyBag
{
public:
  MabRixPropertyBag() = default;
  MabRixPropertyBag(const MabRixPropertyBag&) = delete;
  MabRixPropertyBag& operator=(const MabRixPropertyBag&) = delete;

  HRESULT Set(MabRixArena& ioArena, MabRixPropertyId iId, const KelUnicodeString& iValue)
  {
    return SetText(ioArena, iId, Kind<KelUnicodeString>(), iValue.View());
  }
  HRESULT Set(MabRixArena& ioArena, MabRixPropertyId iId, const MabRixPath& iValue)
  {
    return SetText(ioArena, iId, Kind<MabRixPath>(), iValue.GetString().View());
  }
  HRESULT Set(MabRixArena& ioArena, MabRixPropertyId iId, unsigned char iValue)
  {
    const char Byte = static_cast<char>(iValue);
    return SetText(ioArena, iId, Kind<unsigned char>(), std::string_view(&Byte, 1));
  }
  HRESULT Set(MabRixArena& ioArena, MabRixPropertyId iId, const KelUnicodeStringList& iValue);
  HRESULT Set(MabRixArena& ioArena, MabRixPropertyId iId, const MabRixDocumentID& iValue);

  /// E_FAIL, oValue untouched, when the property is not set or holds
  /// another type.
  template <class T>
  HRESULT Get(MabRixPropertyId iId, T& oValue) const
  {
    const unsigned char* pRecord = Find(iId);
    if (!pRecord || pRecord[1] != Kind<T>())
      return KelResult::Fail;
    Decode(pRecord, oValue);
    return KelResult::Ok;
  }

  bool IsSet(MabRixPropertyId iId) const { return Find(iId) != nullptr; }

  /// Every property set so far, in the order of first setting.
  MabRixPropertyList GetSetProperties() const { return MabRixPropertyList(_pBlock, _pBlock + _Used); }

  /// The record layout, shared with MabRixPropertyList: the id, the kind (the
  /// value's index in MabRixPropertyValue), the payload length as a varint,
  /// then the payload.
  static const unsigned char* Payload(const unsigned char* ipRecord, std::size_t& oLength);
  static const unsigned char* Next(const unsigned char* ipRecord);
  static MabRixPropertyValue DecodeValue(const unsigned char* ipRecord);

private:
  /// The index of T in MabRixPropertyValue.
  template <class T>
  static constexpr unsigned char Kind()
  {
    if constexpr (std::is_same_v<T, KelUnicodeString>)
      return 0;
    else if constexpr (std::is_same_v<T, unsigned char>)
      return 1;
    else if constexpr (std::is_same_v<T, KelUnicodeStringList>)
      return 2;
    else if constexpr (std::is_same_v<T, MabRixPath>)
      return 3;
    else
    {
      static_assert(std::is_same_v<T, MabRixDocumentID>);
      return 4;
    }
  }

  HRESULT SetText(MabRixArena& ioArena, MabRixPropertyId iId, unsigned char iKind, std::string_view iText);
  /// Writes the record of iId with a payload of iLength bytes (replacing the
  /// old one in its place) and returns where the payload goes.
  unsigned char* Place(MabRixArena& ioArena, MabRixPropertyId iId, unsigned char iKind, std::size_t iLength);
  const unsigned char* Find(MabRixPropertyId iId) const;
  unsigned char* Reserve(MabRixArena& ioArena, std::size_t iBytes);

  static void Decode(const unsigned char* ipRecord, KelUnicodeString& oValue);
  static void Decode(const unsigned char* ipRecord, unsigned char& oValue);
  static void Decode(const unsigned char* ipRecord, KelUnicodeStringList& oValue);
  static void Decode(const unsigned char* ipRecord, MabRixPath& oValue);
  static void Decode(const unsigned char* ipRecord, MabRixDocumentID& oValue);

  unsigned char* _pBlock = nullptr;
  std::uint32_t _Used = 0;
  std::uint32_t _Capacity = 0;
};

#endif
