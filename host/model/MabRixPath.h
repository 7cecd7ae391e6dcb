/// File path of a document, as the server and the client name it. A path is valid when it is not empty;
/// joining two paths puts one "/" between them. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixPath_h
#define MabRixPath_h

#include <string_view>

#include "KelUnicodeString.h"

class MabRixPath
{
public:
  MabRixPath() = default;
  MabRixPath(const KelUnicodeString& iPath) : _Path(iPath) {}
  MabRixPath(const char* iPath) : _Path(iPath) {}

  /// True when the path is not empty.
  bool IsValid() const { return !_Path.IsEmpty(); }

  // iRight appended with one "/" at the joint (none added when one side
  // already has it, one dropped when both have it). An empty side gives the
  // other side unchanged.
  MabRixPath operator/(const MabRixPath& iRight) const;

  /// This path becomes iPath, or iLeft / iRight, in the room it already has
  /// when that is enough (a handler reuses one path for every element).
  void Assign(std::string_view iPath) { _Path.Assign(iPath); }
  void AssignJoined(const MabRixPath& iLeft, const MabRixPath& iRight);
  /// The same for two texts, which must not lie in this path.
  void AssignJoined(std::string_view iLeft, std::string_view iRight);
  /// Empties the path, keeping its room.
  void Clear() { _Path.Clear(); }

  const KelUnicodeString& GetString() const { return _Path; }

  bool operator==(const MabRixPath& iOther) const { return _Path == iOther._Path; }
  bool operator!=(const MabRixPath& iOther) const { return !(*this == iOther); }

private:
  KelUnicodeString _Path;
};

#endif
