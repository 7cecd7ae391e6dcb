// The tree baselines: a whole object list parsed into a tree (libxml2 or
// pugixml), walked into a TNR context with the same entities and properties
// the object list handler gives it, and freed. iBeforeFree, when set, runs
// while the tree is still built (heap measurements). False when the document
// could not be read.
#ifndef MabRixBenchTrees_h
#define MabRixBenchTrees_h

#include <cstddef>
#include <functional>
#include <istream>

class MabRixTNRObjectContext;

bool MabRixTreeLibxml2(const char* iData, std::size_t iSize, MabRixTNRObjectContext& ioContext,
                       const std::function<void()>& iBeforeFree = {});
// A file, or standard input for "-".
bool MabRixTreeLibxml2File(const char* iPath, MabRixTNRObjectContext& ioContext);

bool MabRixTreePugixml(const char* iData, std::size_t iSize, MabRixTNRObjectContext& ioContext,
                       const std::function<void()>& iBeforeFree = {});
bool MabRixTreePugixmlStream(std::istream& ioStream, MabRixTNRObjectContext& ioContext);

#endif
