/// Reads the files a command would overwrite: every filedetails element below the handler's own
/// element, at any depth, gives one entry busid -> filename of a MabRixStringMapValue, handed
/// to the parent when the element closes. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixSAXHandlerOverwriteFileList_h
#define MabRixSAXHandlerOverwriteFileList_h

#include "MabRixSAXHandlerBase.h"

class MabRixStringMapValue;

class ExportedByMabRixCommandModel MabRixSAXHandlerOverwriteFileList : public MabRixSAXHandlerBase
{
  KelDeclareClass

public:
  explicit MabRixSAXHandlerOverwriteFileList(MabRixSAXHandlerBase& iParent);
  ~MabRixSAXHandlerOverwriteFileList() override;

  // The list is read from attributes only: its text (the white space of a
  // pretty-printed response) is not kept.
  HRESULT Characters(const KelUnicodeString& iCharacters) override;
  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  HRESULT EndElement(const KelUnicodeString& iName) override;

private:
  MabRixStringMapValue* _pMapValue = nullptr;  ///< one reference held
};

MabRixDeclareTIE(MabRixSAXHandlerOverwriteFileList)

#endif
