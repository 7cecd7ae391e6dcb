#include "MabRixDocumentID.h"

MabRixDocumentID MabRixDocumentID::Create(const KelUnicodeString& iType, const KelUnicodeString& iName,
                                          const MabRixPath& iPath)
{
  MabRixDocumentID ID;
  ID._Type = iType;
  ID._Name = iName;
  ID._Path = iPath;
  return ID;
}

void MabRixDocumentID::Assign(const KelUnicodeString& iType, const KelUnicodeString& iName, const MabRixPath& iPath)
{
  _Type = iType;
  _Name = iName;
  _Path = iPath;
}
