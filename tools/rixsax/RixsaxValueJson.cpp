#include "RixsaxValueJson.h"

#include <functional>
#include <string_view>
#include <vector>

#include "MabRixBooleanValue.h"
#include "MabRixStringValue.h"

namespace
{
// How one value class is written and counted.
struct ValueWriter
{
  std::string_view _ClassName;
  std::function<void(const KelBaseUnknown& iValue, RixsaxJson& oJson)> _Write;
  std::function<std::size_t(const KelBaseUnknown& iValue)> _Count;
};

template <class C, class Write, class Count>
ValueWriter Writer(std::string_view iClassName, Write iWrite, Count iCount)
{
  return {iClassName,
          [iWrite](const KelBaseUnknown& iValue, RixsaxJson& oJson) {
            iWrite(dynamic_cast<const C&>(iValue), oJson);
          },
          [iCount](const KelBaseUnknown& iValue) { return iCount(dynamic_cast<const C&>(iValue)); }};
}

template <class C>
std::size_t NoEntries(const C&)
{
  return 0;
}

const std::vector<ValueWriter>& Writers()
{
  static const std::vector<ValueWriter> Table = {
      Writer<MabRixStringValue>(
          "MabRixStringValue",
          [](const MabRixStringValue& iValue, RixsaxJson& oJson) { oJson["string"] = RixsaxToJson(iValue._Value); },
          NoEntries<MabRixStringValue>),
      Writer<MabRixBooleanValue>(
          "MabRixBooleanValue",
          [](const MabRixBooleanValue& iValue, RixsaxJson& oJson) { oJson["boolean"] = iValue._Value != 0; },
          NoEntries<MabRixBooleanValue>),
  };
  return Table;
}

// The writer of a value's own class (not of a base: the class name is what
// handlers go by too).
const ValueWriter* FindWriter(const KelBaseUnknown& iValue)
{
  const std::string_view ClassName = iValue.IsA();
  for (const ValueWriter& Entry : Writers())
    if (Entry._ClassName == ClassName)
      return &Entry;
  return nullptr;
}
}  // namespace

RixsaxJson RixsaxValueJson(const MabIRixValue_var& iValue)
{
  if (!iValue)
    return nullptr;
  const KelBaseUnknown& Value = *iValue->GetImpl();
  RixsaxJson Json = RixsaxJson::object();
  Json["class"] = Value.IsA();
  if (const ValueWriter* pWriter = FindWriter(Value))
    pWriter->_Write(Value, Json);
  return Json;
}

std::size_t RixsaxValueEntryCount(const MabIRixValue_var& iValue)
{
  if (!iValue)
    return 0;
  const ValueWriter* pWriter = FindWriter(*iValue->GetImpl());
  return pWriter ? pWriter->_Count(*iValue->GetImpl()) : 0;
}

RixsaxJson RixsaxResponseJson(const MabIRixResponse_var& iResponse)
{
  if (!iResponse)
    return nullptr;
  RixsaxJson Json = RixsaxJson::object();
  Json["class"] = iResponse->GetImpl()->IsA();
  Json["commandName"] = RixsaxToJson(iResponse->GetCommandName());
  Json["success"] = iResponse->Success() != 0;
  Json["request"] = iResponse->Request() != 0;
  return Json;
}
