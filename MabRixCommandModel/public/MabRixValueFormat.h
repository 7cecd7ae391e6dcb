/// How the value of an element is written, and the factory of the handler
/// that reads it. The command layer builds formats and lends them to the
/// handlers; a handler asks its format for a new sub-handler each time it
/// meets a value. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixValueFormat_h
#define MabRixValueFormat_h

#include <new>

#include "KelClassMacros.h"
#include "MabRixSAXHandlerBase.h"

class ExportedByMabRixCommandModel MabRixValueFormat : public KelBaseUnknown
{
  KelDeclareClass

public:
  MabRixValueFormat() = default;
  MabRixValueFormat(const MabRixValueFormat&) = default;
  MabRixValueFormat& operator=(const MabRixValueFormat&) = default;
  ~MabRixValueFormat() override;

  /// Creates (does not start) a new handler for the value, with iParent as its
  /// parent, into oHandler. oHandler's previous handler is released first (a
  /// format may instead read it again when no one else can see it: see
  /// MabRixSAXHandlerBase::RenewChild). E_FAIL when no handler could be made.
  virtual HRESULT GetSubHandler(MabRixSAXHandlerBase& iParent, MabIRixSAXHandler_var& oHandler) = 0;

protected:
  /// The three steps every format takes, for a handler built from
  /// (iParent, iArguments...).
  template <class Handler, class... Arguments>
  static HRESULT CreateSubHandler(MabIRixSAXHandler_var& oHandler, MabRixSAXHandlerBase& iParent,
                                  const Arguments&... iArguments)
  {
    oHandler = nullptr;
    oHandler = MabIRixSAXHandler_var::Adopt(new (std::nothrow) Handler(iParent, iArguments...));
    return !oHandler ? KelResult::Fail : KelResult::Ok;
  }
};

#endif
