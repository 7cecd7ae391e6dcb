#include "KelSAXHandlerBase.h"

KelImplementClass(KelSAXHandlerBase, KelBaseUnknown, "KelSystem")

KelSAXHandlerBase::~KelSAXHandlerBase() = default;

HRESULT KelSAXHandlerBase::Characters(const KelUnicodeString&) { return S_OK; }
HRESULT KelSAXHandlerBase::EndDocument() { return S_OK; }
HRESULT KelSAXHandlerBase::EndElement(const KelUnicodeString&) { return S_OK; }
HRESULT KelSAXHandlerBase::IgnorableWhiteSpace(const KelUnicodeString&) { return S_OK; }
HRESULT KelSAXHandlerBase::ProcessingInstruction(const KelUnicodeString&, const KelUnicodeString&) { return S_OK; }
HRESULT KelSAXHandlerBase::SetDocumentLocator(const KelISAXLocator_var&) { return S_OK; }
HRESULT KelSAXHandlerBase::StartDocument() { return S_OK; }
HRESULT KelSAXHandlerBase::StartElement(const KelUnicodeString&, const KelISAXAttributeList_var&) { return S_OK; }
HRESULT KelSAXHandlerBase::NotationDecl(const KelUnicodeString&, const KelUnicodeString&, const KelUnicodeString&)
{
  return S_OK;
}
HRESULT KelSAXHandlerBase::UnparsedEntityDecl(const KelUnicodeString&, const KelUnicodeString&, const KelUnicodeString&,
                                              const KelUnicodeString&)
{
  return S_OK;
}
HRESULT KelSAXHandlerBase::ResolveEntity(const KelUnicodeString&, const KelUnicodeString&) { return S_OK; }
HRESULT KelSAXHandlerBase::Error(const KelUnicodeString&) { return S_OK; }
HRESULT KelSAXHandlerBase::FatalError(const KelUnicodeString&) { return S_OK; }
HRESULT KelSAXHandlerBase::Warning(const KelUnicodeString&) { return S_OK; }
