/// The content of one cadobject element, handed up by counted reference. See @ref conventions. @file
#ifndef MabRixObjectAttributeValue_h
#define MabRixObjectAttributeValue_h

#include "KelClassMacros.h"
#include "KelDicos.h"
#include "MabIRixValue.h"
#include "MabRixPath.h"

/// The content of one cadobject element: the text of each simple child
/// element, the preview as a path, and the attribute elements.
class MabRixObjectAttributeValue : public virtual MabIRixValue
{
  KelDeclareClass

public:
  MabRixObjectAttributeValue() = default;

  MabRixPath _PreviewPath;                              ///< text of "preview"
  KelUnicodeStringKelUnicodeStringDico _ElementValues;  ///< child element name to its text
  KelUnicodeStringKelUnicodeStringDico _Attributes;     ///< attribute name to its value
};

#endif
