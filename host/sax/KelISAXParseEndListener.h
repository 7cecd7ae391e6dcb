/// A document handler that wants to know when the parser lets it go. The
/// parser calls OnParseEnd on its document handler once a document is over,
/// whatever the outcome (complete, malformed, stopped, an exception), just
/// before releasing it. A handler that holds others only while their elements
/// are open uses it to let them go when those elements never close. Ownership, threads, errors: @ref conventions. @file
#ifndef KelISAXParseEndListener_h
#define KelISAXParseEndListener_h

#include "KelBaseUnknown.h"

class KelISAXParseEndListener : public virtual KelBaseUnknown
{
public:
  virtual void OnParseEnd() noexcept = 0;
};

#endif
