// The JSON document as an indented tree for people: one member a line,
// lists as "- " items, texts quoted so that blanks and line breaks show.
#ifndef RixsaxTextTree_h
#define RixsaxTextTree_h

#include <string>

#include "RixsaxJsonBasics.h"

std::string RixsaxTextTree(const RixsaxJson& iJson);

#endif
