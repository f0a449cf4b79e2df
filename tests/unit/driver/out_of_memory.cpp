// Takes the place of the session request in a build of the program: finds no memory.
#include <new>

#include "net/ReportSteps.h"

namespace crashvane {

// The linker's name for what is called instead of SendSession.
int OutOfMemory(Collection*, const Config&) __asm__("__wrap__ZN9crashvane11SendSessionEPNS_10CollectionERKNS_6ConfigE");

int OutOfMemory(Collection*, const Config&) {
    throw std::bad_alloc();
}

}  // namespace crashvane
