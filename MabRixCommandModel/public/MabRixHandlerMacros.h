/// Registration of a handler class, written once: its class record and the
/// factory of its MabIRixSAXHandler interface. Ownership, threads, errors: @ref conventions. @file
#ifndef MabRixHandlerMacros_h
#define MabRixHandlerMacros_h

#include "KelClassMacros.h"
#include "MabIRixSAXHandler.h"

/// After the class declaration in its header.
#define MabRixDeclareTIE(Class) \
  ExportedByMabRixCommandModel MabIRixSAXHandler* CreateTIEMabIRixSAXHandler##Class(Class& iImplementation);

/// In the class's source file.
#define MabRixImplementHandler(Class, BaseClass) \
  MabRixImplementClass(Class, BaseClass)         \
  MabIRixSAXHandler* CreateTIEMabIRixSAXHandler##Class(Class& iImplementation) { return &iImplementation; }

#endif
