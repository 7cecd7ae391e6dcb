/// Document handler that does nothing: every SAX callback, document, DTD,
/// entity-resolver and error ones, returns S_OK. Ownership, threads, errors: @ref conventions. @file
#ifndef KelSAXHandlerBase_h
#define KelSAXHandlerBase_h

#include "KelClassMacros.h"
#include "KelISAXDocumentHandler.h"

class KelSAXHandlerBase : public virtual KelISAXDocumentHandler
{
  KelDeclareClass

public:
  KelSAXHandlerBase() = default;
  ~KelSAXHandlerBase() override;

  HRESULT Characters(const KelUnicodeString& iCharacters) override;
  HRESULT EndDocument() override;
  HRESULT EndElement(const KelUnicodeString& iName) override;
  HRESULT IgnorableWhiteSpace(const KelUnicodeString& iCharacters) override;
  HRESULT ProcessingInstruction(const KelUnicodeString& iTarget, const KelUnicodeString& iData) override;
  HRESULT SetDocumentLocator(const KelISAXLocator_var& iLocator) override;
  HRESULT StartDocument() override;
  HRESULT StartElement(const KelUnicodeString& iName, const KelISAXAttributeList_var& iAttributes) override;
  virtual HRESULT NotationDecl(const KelUnicodeString& iName, const KelUnicodeString& iPublicId,
                               const KelUnicodeString& iSystemId);
  virtual HRESULT UnparsedEntityDecl(const KelUnicodeString& iName, const KelUnicodeString& iPublicId,
                                     const KelUnicodeString& iSystemId, const KelUnicodeString& iNotationName);
  virtual HRESULT ResolveEntity(const KelUnicodeString& iPublicId, const KelUnicodeString& iSystemId);
  virtual HRESULT Error(const KelUnicodeString& iMessage);
  virtual HRESULT FatalError(const KelUnicodeString& iMessage);
  virtual HRESULT Warning(const KelUnicodeString& iMessage);
};

#endif
