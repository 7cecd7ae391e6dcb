// rixgen: writes a deterministic server response of a given size to stdout
// or a file, streaming (memory stays small whatever the size).
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "MabRixResponseGenerator.h"

namespace
{
void Usage(std::FILE* ipOut)
{
  std::fprintf(ipOut,
               "usage: rixgen KIND [--count N | --bytes SIZE] [--seed S] [--distinct N] [--depth D]\n"
               "              [--output FILE] [--stats]\n"
               "  KIND      one of:");
  for (const MabRixResponseKind Kind : MabRixResponseGenerator::AllKinds())
    std::fprintf(ipOut, " %s", MabRixResponseGenerator::KindName(Kind));
  std::fprintf(ipOut,
               "\n"
               "  --count N      records (objects, rows, relationships, files); default 1000\n"
               "  --bytes SIZE   records until the document reaches SIZE (suffix K, M or G: powers of 1024)\n"
               "  --seed S       varies versions, flags and texts, not the keys; default 1\n"
               "  --distinct N   record keys cycle over N values (repeated objects, repeated busid)\n"
               "  --depth D      structure-deep: objects per nested chain; default 64\n"
               "  --output FILE  write there instead of stdout\n"
               "  --stats        print bytes, records and elements to stderr\n");
}

bool ParseSize(const char* iText, std::uint64_t& oSize)
{
  char* pEnd = nullptr;
  const unsigned long long Value = std::strtoull(iText, &pEnd, 10);
  if (pEnd == iText)
    return false;
  std::uint64_t Unit = 1;
  if (*pEnd == 'K' || *pEnd == 'k')
    Unit = 1ull << 10;
  else if (*pEnd == 'M' || *pEnd == 'm')
    Unit = 1ull << 20;
  else if (*pEnd == 'G' || *pEnd == 'g')
    Unit = 1ull << 30;
  else if (*pEnd != '\0')
    return false;
  if (Unit != 1 && pEnd[1] != '\0')
    return false;
  oSize = Value * Unit;
  return true;
}
}  // namespace

int main(int argc, char** argv)
{
  if (argc < 2 || std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)
  {
    Usage(argc < 2 ? stderr : stdout);
    return argc < 2 ? 2 : 0;
  }
  MabRixGeneratorOptions Options;
  if (!MabRixResponseGenerator::KindFromName(argv[1], Options._Kind))
  {
    std::fprintf(stderr, "rixgen: unknown kind '%s'\n", argv[1]);
    Usage(stderr);
    return 2;
  }
  const char* Output = nullptr;
  bool Stats = false;
  for (int i = 2; i < argc; ++i)
  {
    const std::string_view Option = argv[i];
    if (Option == "--stats")
    {
      Stats = true;
      continue;
    }
    if (i + 1 >= argc)
    {
      std::fprintf(stderr, "rixgen: %s needs a value\n", argv[i]);
      return 2;
    }
    const char* Value = argv[++i];
    std::uint64_t Number = 0;
    const bool IsNumber = ParseSize(Value, Number);
    if (Option == "--output" || Option == "-o")
      Output = Value;
    else if (!IsNumber)
    {
      std::fprintf(stderr, "rixgen: %s: '%s' is not a number\n", argv[i - 1], Value);
      return 2;
    }
    else if (Option == "--count")
      Options._Count = Number;
    else if (Option == "--bytes")
      Options._Bytes = Number;
    else if (Option == "--seed")
      Options._Seed = Number;
    else if (Option == "--distinct")
      Options._DistinctKeys = Number;
    else if (Option == "--depth")
      Options._Depth = static_cast<unsigned>(Number);
    else
    {
      std::fprintf(stderr, "rixgen: unknown option %s\n", argv[i - 1]);
      return 2;
    }
  }
  std::FILE* pFile = Output ? std::fopen(Output, "wb") : stdout;
  if (!pFile)
  {
    std::perror(Output);
    return 1;
  }
  const MabRixGeneratorStats Result = MabRixResponseGenerator::ToFile(Options, pFile);
  const bool Failed = std::ferror(pFile) != 0;
  if ((Output ? std::fclose(pFile) : std::fflush(pFile)) != 0 || Failed)
  {
    std::fprintf(stderr, "rixgen: write failed\n");
    return 1;
  }
  if (Stats)
    std::fprintf(stderr, "bytes %llu records %llu elements %llu\n", static_cast<unsigned long long>(Result._Bytes),
                 static_cast<unsigned long long>(Result._Records), static_cast<unsigned long long>(Result._Elements));
  return 0;
}
