/// Symbols of the library are hidden unless marked with this. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixCommandModelExport_h
#define MabRixCommandModelExport_h

#if defined(_WIN32)
#if defined(MabRixCommandModel_EXPORTS)
#define ExportedByMabRixCommandModel __declspec(dllexport)
#else
#define ExportedByMabRixCommandModel __declspec(dllimport)
#endif
#else
#define ExportedByMabRixCommandModel __attribute__((visibility("default")))
#endif

#endif
