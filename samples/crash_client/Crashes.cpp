#include "Crashes.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

namespace sample {

namespace {

volatile std::size_t g_uResult = 0;  // keeps the compiler from leaving out what nobody looks at

void WriteThroughNull() {
    volatile int* volatile pNowhere = reinterpret_cast<int*>(0x10);
    *pNowhere = 1;
}

// Each call uses the result of the next one, so that none can be turned into a jump.
unsigned Recurse(unsigned uDepth) {
    volatile unsigned char Frame[512];
    Frame[uDepth % sizeof(Frame)] = static_cast<unsigned char>(uDepth);
    const unsigned uBelow = uDepth == ~0U ? 0 : Recurse(uDepth + 1);
    return uBelow + Frame[uDepth % sizeof(Frame)];
}

// Twice as much each time, until nobody has so much: a few steps, and no page of it is ever touched.
void AskForAllMemory() {
    for (std::size_t uSize = 1U << 30; uSize != 0; uSize *= 2) {
        g_uResult = reinterpret_cast<std::size_t>(::operator new(uSize));
    }
}

}  // namespace

bool CrashAs(const char* pszHow) {
    if (std::strcmp(pszHow, "none") == 0) {
        return true;
    }
    if (std::strcmp(pszHow, "access") == 0) {
        WriteThroughNull();
    } else if (std::strcmp(pszHow, "stack") == 0) {
        g_uResult = Recurse(1);
    } else if (std::strcmp(pszHow, "abort") == 0) {
        std::abort();
    } else if (std::strcmp(pszHow, "memory") == 0) {
        AskForAllMemory();
    } else if (std::strcmp(pszHow, "exception") == 0) {
        throw std::runtime_error("nobody catches this");
    }
    return false;
}

}  // namespace sample
