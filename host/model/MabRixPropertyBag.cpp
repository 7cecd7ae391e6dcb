#include "MabRixPropertyBag.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "MabRixArena.h"

namespace
{
// Lengths are written 7 bits a byte, low bits first, the high bit telling
// that more follow: a text shorter than 128 bytes costs one byte of length.
std::size_t VarintSize(std::size_t iValue)
{
  std::size_t Size = 1;
  for (; iValue >= 0x80; iValue >>= 7)
    ++Size;
  return Size;
}

unsigned char* PutVarint(unsigned char* opOut, std::size_t iValue)
{
  for (; iValue >= 0x80; iValue >>= 7)
    *opOut++ = static_cast<unsigned char>(iValue | 0x80);
  *opOut++ = static_cast<unsigned char>(iValue);
  return opOut;
}

const unsigned char* GetVarint(const unsigned char* ipIn, std::size_t& oValue)
{
  oValue = 0;
  for (int Shift = 0;; Shift += 7)
  {
    const unsigned char Byte = *ipIn++;
    oValue |= static_cast<std::size_t>(Byte & 0x7F) << Shift;
    if (!(Byte & 0x80))
      return ipIn;
  }
}

// A payload made of length-prefixed texts (list items, document ID parts).
std::size_t PartSize(std::string_view iText) { return VarintSize(iText.size()) + iText.size(); }

unsigned char* PutPart(unsigned char* opOut, std::string_view iText)
{
  opOut = PutVarint(opOut, iText.size());
  if (!iText.empty())
    std::memcpy(opOut, iText.data(), iText.size());
  return opOut + iText.size();
}

const unsigned char* GetPart(const unsigned char* ipIn, std::string_view& oText)
{
  std::size_t Length = 0;
  ipIn = GetVarint(ipIn, Length);
  oText = std::string_view(reinterpret_cast<const char*>(ipIn), Length);
  return ipIn + Length;
}

std::string_view PayloadText(const unsigned char* ipRecord)
{
  std::size_t Length = 0;
  const unsigned char* pPayload = MabRixPropertyBag::Payload(ipRecord, Length);
  return std::string_view(reinterpret_cast<const char*>(pPayload), Length);
}
}  // namespace

const MabRixProperty& MabRixPropertyList::const_iterator::operator*() const
{
  _Current._Name = MabRixPropertyNames[_pRecord[0]];
  _Current._Value = MabRixPropertyBag::DecodeValue(_pRecord);
  return _Current;
}

MabRixPropertyList::const_iterator& MabRixPropertyList::const_iterator::operator++()
{
  _pRecord = MabRixPropertyBag::Next(_pRecord);
  return *this;
}

std::size_t MabRixPropertyList::size() const
{
  std::size_t Count = 0;
  for (const unsigned char* pRecord = _pBegin; pRecord != _pEnd; pRecord = MabRixPropertyBag::Next(pRecord))
    ++Count;
  return Count;
}

MabRixProperty MabRixPropertyList::operator[](std::size_t iPosition) const
{
  const unsigned char* pRecord = _pBegin;
  for (; iPosition > 0; --iPosition)
    pRecord = MabRixPropertyBag::Next(pRecord);
  return MabRixProperty{MabRixPropertyNames[pRecord[0]], MabRixPropertyBag::DecodeValue(pRecord)};
}

const unsigned char* MabRixPropertyBag::Payload(const unsigned char* ipRecord, std::size_t& oLength)
{
  return GetVarint(ipRecord + 2, oLength);
}

const unsigned char* MabRixPropertyBag::Next(const unsigned char* ipRecord)
{
  std::size_t Length = 0;
  return Payload(ipRecord, Length) + Length;
}

MabRixPropertyValue MabRixPropertyBag::DecodeValue(const unsigned char* ipRecord)
{
  MabRixPropertyValue Value;
  switch (ipRecord[1])
  {
    case Kind<KelUnicodeString>():
      Decode(ipRecord, Value.emplace<KelUnicodeString>());
      break;
    case Kind<unsigned char>():
      Decode(ipRecord, Value.emplace<unsigned char>());
      break;
    case Kind<KelUnicodeStringList>():
      Decode(ipRecord, Value.emplace<KelUnicodeStringList>());
      break;
    case Kind<MabRixPath>():
      Decode(ipRecord, Value.emplace<MabRixPath>());
      break;
    default:
      Decode(ipRecord, Value.emplace<MabRixDocumentID>());
      break;
  }
  return Value;
}

void MabRixPropertyBag::Decode(const unsigned char* ipRecord, KelUnicodeString& oValue)
{
  oValue = KelUnicodeString(PayloadText(ipRecord));
}

void MabRixPropertyBag::Decode(const unsigned char* ipRecord, unsigned char& oValue)
{
  oValue = static_cast<unsigned char>(PayloadText(ipRecord)[0]);
}

void MabRixPropertyBag::Decode(const unsigned char* ipRecord, KelUnicodeStringList& oValue)
{
  std::size_t Length = 0;
  const unsigned char* pIn = Payload(ipRecord, Length);
  const unsigned char* pEnd = pIn + Length;
  KelUnicodeStringList List;
  while (pIn != pEnd)
  {
    std::string_view Item;
    pIn = GetPart(pIn, Item);
    List.Append(KelUnicodeString(Item));
  }
  oValue = std::move(List);
}

void MabRixPropertyBag::Decode(const unsigned char* ipRecord, MabRixPath& oValue)
{
  oValue = MabRixPath(KelUnicodeString(PayloadText(ipRecord)));
}

void MabRixPropertyBag::Decode(const unsigned char* ipRecord, MabRixDocumentID& oValue)
{
  std::size_t Length = 0;
  const unsigned char* pIn = Payload(ipRecord, Length);
  const unsigned char* pEnd = pIn + Length;
  std::string_view Type;
  std::string_view Name;
  pIn = GetPart(pIn, Type);
  pIn = GetPart(pIn, Name);
  const std::string_view Path(reinterpret_cast<const char*>(pIn), static_cast<std::size_t>(pEnd - pIn));
  oValue = MabRixDocumentID::Create(KelUnicodeString(Type), KelUnicodeString(Name), MabRixPath(KelUnicodeString(Path)));
}

HRESULT MabRixPropertyBag::SetText(MabRixArena& ioArena, MabRixPropertyId iId, unsigned char iKind,
                                   std::string_view iText)
{
  unsigned char* pPayload = Place(ioArena, iId, iKind, iText.size());
  if (!iText.empty())
    std::memcpy(pPayload, iText.data(), iText.size());
  return S_OK;
}

HRESULT MabRixPropertyBag::Set(MabRixArena& ioArena, MabRixPropertyId iId, const KelUnicodeStringList& iValue)
{
  std::size_t Length = 0;
  for (const KelUnicodeString& Item : iValue)
    Length += PartSize(Item.View());
  unsigned char* pOut = Place(ioArena, iId, Kind<KelUnicodeStringList>(), Length);
  for (const KelUnicodeString& Item : iValue)
    pOut = PutPart(pOut, Item.View());
  return S_OK;
}

HRESULT MabRixPropertyBag::Set(MabRixArena& ioArena, MabRixPropertyId iId, const MabRixDocumentID& iID)
{
  const std::string_view Path = iID.GetPath().GetString().View();
  unsigned char* pOut = Place(ioArena, iId, Kind<MabRixDocumentID>(),
                              PartSize(iID.GetType().View()) + PartSize(iID.GetName().View()) + Path.size());
  pOut = PutPart(pOut, iID.GetType().View());
  pOut = PutPart(pOut, iID.GetName().View());
  if (!Path.empty())
    std::memcpy(pOut, Path.data(), Path.size());
  return S_OK;
}

const unsigned char* MabRixPropertyBag::Find(MabRixPropertyId iId) const
{
  const unsigned char* pEnd = _pBlock + _Used;
  for (const unsigned char* pRecord = _pBlock; pRecord != pEnd; pRecord = Next(pRecord))
    if (pRecord[0] == iId)
      return pRecord;
  return nullptr;
}

unsigned char* MabRixPropertyBag::Place(MabRixArena& ioArena, MabRixPropertyId iId, unsigned char iKind,
                                        std::size_t iLength)
{
  const std::size_t NewSize = 2 + VarintSize(iLength) + iLength;
  const unsigned char* pOld = Find(iId);
  std::size_t Offset = _Used;
  std::size_t OldSize = 0;
  if (pOld)
  {
    Offset = static_cast<std::size_t>(pOld - _pBlock);
    OldSize = static_cast<std::size_t>(Next(pOld) - pOld);
  }
  if (NewSize != OldSize)
  {
    // The records after this one move so that it keeps its place.
    const std::size_t Tail = _Used - Offset - OldSize;
    unsigned char* pBlock = Reserve(ioArena, _Used - OldSize + NewSize);
    if (Tail)
      std::memmove(pBlock + Offset + NewSize, pBlock + Offset + OldSize, Tail);
    _Used = static_cast<std::uint32_t>(_Used - OldSize + NewSize);
  }
  unsigned char* pRecord = _pBlock + Offset;
  pRecord[0] = iId;
  pRecord[1] = iKind;
  return PutVarint(pRecord + 2, iLength);
}

// An entity's properties are mostly set one after the other right after it
// is made: the block then grows where it lies. When another entity was made
// in between, the block moves and its old room goes to the next block of its
// size.
unsigned char* MabRixPropertyBag::Reserve(MabRixArena& ioArena, std::size_t iBytes)
{
  if (iBytes <= _Capacity)
    return _pBlock;
  if (iBytes > UINT32_MAX / 2)
    throw std::bad_alloc();
  const std::size_t Capacity = MabRixArena::BlockBytes(iBytes);
  if (_pBlock && ioArena.Extend(_pBlock, _Capacity, Capacity))
  {
    _Capacity = static_cast<std::uint32_t>(Capacity);
    return _pBlock;
  }
  unsigned char* pBlock = static_cast<unsigned char*>(ioArena.AllocateBlock(Capacity));
  if (_Used)
    std::memcpy(pBlock, _pBlock, _Used);
  ioArena.RecycleBlock(_pBlock, _Capacity);
  _pBlock = pBlock;
  _Capacity = static_cast<std::uint32_t>(Capacity);
  return _pBlock;
}
