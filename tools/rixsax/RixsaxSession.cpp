#include "RixsaxSession.h"

#include "RixsaxFormats.h"

RixsaxSession::RixsaxSession(const RixsaxOptions& iOptions)
    : _FirstSeparator(iOptions._FirstSeparator), _SecondSeparator(iOptions._SecondSeparator),
      _ListSeparator(iOptions._ListSeparator), _Item(iOptions._Item),
      _Key(iOptions._KeyValue ? iOptions._KeyValue->first : std::string()),
      _Value(iOptions._KeyValue ? iOptions._KeyValue->second : std::string()), _ElementKind(iOptions._ElementKind),
      _Options(iOptions)
{
  // Without --value-format an attribute's value is read as a string.
  _spFormat = RixsaxMakeFormat(iOptions._ValueFormat.empty() ? "string" : iOptions._ValueFormat, iOptions);
  for (const auto& [Name, Kind] : iOptions._FormatFor)
    _FormatMap.Insert(KelUnicodeString(Name), KelBaseUnknown_var(RixsaxMakeFormat(Kind, iOptions)));
  if (iOptions._CanResolveUUIDConflict)
  {
    _spObjectDetailsResponse = MabRixObjectDetailsResponse_var::Adopt(new MabRixObjectDetailsResponse());
    _spObjectDetailsResponse->_SetCanResolveUUIDConflict(*iOptions._CanResolveUUIDConflict ? TRUE : FALSE);
  }
}

RixsaxSession::~RixsaxSession()
{
  if (_pTNRContext)
    _pTNRContext->Release();
  if (_pCADContext)
    _pCADContext->Release();
}

MabRixTNRObjectContext*& RixsaxSession::TNRContext()
{
  if (!_pTNRContext)
    _pTNRContext = new MabRixTNRObjectContext();
  return _pTNRContext;
}

MabRixCADObjectContext*& RixsaxSession::CADContext()
{
  if (!_pCADContext)
    _pCADContext = new MabRixCADObjectContext();
  return _pCADContext;
}
