#include "MabRixContextStore.h"

#include <functional>
#include <new>

namespace
{
constexpr std::size_t HeaderBytes = sizeof(MabRixContextStore*);

std::size_t HashOf(std::string_view iText) { return std::hash<std::string_view>()(iText); }

void* Start(void* ipMemory, MabRixContextStore* ipStore)
{
  *static_cast<MabRixContextStore**>(ipMemory) = ipStore;
  return static_cast<char*>(ipMemory) + HeaderBytes;
}
}  // namespace

MabRixContextStore::~MabRixContextStore()
{
  // The strings themselves lie in the arena; their buffers may not.
  for (KelUnicodeString* pText : _Slots)
    if (pText)
      pText->~KelUnicodeString();
}

const KelUnicodeString& MabRixContextStore::Intern(std::string_view iText)
{
  if (2 * (_Count + 1) > _Slots.size())
    Grow();
  const std::size_t Mask = _Slots.size() - 1;
  for (std::size_t i = HashOf(iText) & Mask;; i = (i + 1) & Mask)
  {
    KelUnicodeString*& pSlot = _Slots[i];
    if (!pSlot)
    {
      pSlot = new (_Arena.Allocate(sizeof(KelUnicodeString), alignof(KelUnicodeString))) KelUnicodeString(iText);
      ++_Count;
      return *pSlot;
    }
    if (pSlot->View() == iText)
      return *pSlot;
  }
}

void MabRixContextStore::Grow()
{
  std::vector<KelUnicodeString*> Old(_Slots.empty() ? 16 : 2 * _Slots.size(), nullptr);
  Old.swap(_Slots);
  const std::size_t Mask = _Slots.size() - 1;
  for (KelUnicodeString* pText : Old)
    if (pText)
    {
      std::size_t i = HashOf(pText->View()) & Mask;
      while (_Slots[i])
        i = (i + 1) & Mask;
      _Slots[i] = pText;
    }
}

// Every class that derives from this one has an alignment of at most a
// pointer's, which the word of header keeps.
void* MabRixContextAllocated::operator new(std::size_t iBytes)
{
  return Start(::operator new(HeaderBytes + iBytes), nullptr);
}

void* MabRixContextAllocated::operator new(std::size_t iBytes, MabRixContextStore& ioStore)
{
  void* pMemory = ioStore.GetArena().Allocate(HeaderBytes + iBytes, alignof(MabRixContextStore*));
  ioStore.AddRef();
  return Start(pMemory, &ioStore);
}

void MabRixContextAllocated::operator delete(void* ipObject)
{
  if (!ipObject)
    return;
  void* pMemory = static_cast<char*>(ipObject) - HeaderBytes;
  if (MabRixContextStore* pStore = *static_cast<MabRixContextStore**>(pMemory))
    pStore->Release();  // the memory goes with the store
  else
    ::operator delete(pMemory);
}

void MabRixContextAllocated::operator delete(void* ipObject, MabRixContextStore&) { operator delete(ipObject); }
