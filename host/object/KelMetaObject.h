/// Class identity records of the object model. One immutable record per
/// class; the records chain to their base class. Ownership, threads, errors: @ref conventions. @file
#ifndef KelMetaObject_h
#define KelMetaObject_h

struct KelMetaObject
{
  const char* _Name;            ///< the class name, as IsA() answers it
  const KelMetaObject* _pBase;  ///< the base class's record; null for the root
  const char* _Framework;       ///< framework that registered the class
  const char* _BaseName;        ///< the base class's name, "Kelnull" for the root

  /// True for this class's own name and the name of every base.
  bool IsAKindOf(const char* iName) const;
};

#endif
