// The fuzz target's input: a header that chooses the handler, its
// constructor options, the check reporter's answers, the parser's options
// and the sizes of the pieces the response is fed in; the response follows.
//
//   byte 0      handler (index in the handler table, modulo its size)
//   byte 1      reporter: 0 stop, 1 go on, else the pattern of bytes 2-5
//   bytes 2-5   answer pattern, one bit per report, repeated
//   byte 6      parser: bit 0 stop on callback failure, bit 1 allow a
//               document type, bit 2 no expat reparse deferral
//   bytes 7-10  piece sizes, repeated (0: all the rest at once)
//   byte 11     number of option bytes that follow (at most 15)
//   ...         option bytes, then the response
#ifndef MabRixFuzzHandlers_h
#define MabRixFuzzHandlers_h

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Builds an input for the target (seed corpus, replays).
std::vector<std::uint8_t> MabRixFuzzInput(std::size_t iHandler, std::uint8_t iReporter, const std::string& iXml,
                                          const std::vector<std::uint8_t>& iOptions = {}, std::uint32_t iPattern = 0,
                                          std::uint8_t iParser = 0, std::uint32_t iPieces = 0);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* iData, std::size_t iSize);

#endif
