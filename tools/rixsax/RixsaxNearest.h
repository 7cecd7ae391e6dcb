// "did you mean" for a name that is not known: the known names nearest to it
// in edit distance.
#ifndef RixsaxNearest_h
#define RixsaxNearest_h

#include <string>
#include <vector>

// "; did you mean NAME?" or "; did you mean NAME or NAME?" for the names
// within a few edits of iName (or that start with it); empty when none is.
std::string RixsaxDidYouMean(const std::string& iName, const std::vector<std::string>& iNames);

#endif
