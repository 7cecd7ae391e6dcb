#include "RixsaxSession.h"

RixsaxSession::RixsaxSession(const RixsaxOptions& iOptions)
    : _FirstSeparator(iOptions._FirstSeparator),
      _SecondSeparator(iOptions._SecondSeparator),
      _ListSeparator(iOptions._ListSeparator),
      _Item(iOptions._Item),
      _Key(iOptions._KeyValue ? iOptions._KeyValue->first : std::string()),
      _Value(iOptions._KeyValue ? iOptions._KeyValue->second : std::string()),
      _ElementKind(iOptions._ElementKind),
      _Options(iOptions)
{
}

RixsaxSession::~RixsaxSession() = default;
