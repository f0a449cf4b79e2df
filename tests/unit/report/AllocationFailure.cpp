#include "AllocationFailure.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

bool g_bArmed = false;
bool g_bHappened = false;
long g_nLeft = 0;

void* Allocate(std::size_t uSize) {
    if (g_bArmed && g_nLeft-- <= 0) {
        g_bHappened = true;
        throw std::bad_alloc();
    }
    void* pMemory = std::malloc(uSize == 0 ? 1 : uSize);
    if (pMemory == nullptr) {
        throw std::bad_alloc();
    }
    return pMemory;
}

}  // namespace

void* operator new(std::size_t uSize) {
    return Allocate(uSize);
}
void* operator new[](std::size_t uSize) {
    return Allocate(uSize);
}
void operator delete(void* pMemory) noexcept {
    std::free(pMemory);
}
void operator delete[](void* pMemory) noexcept {
    std::free(pMemory);
}
void operator delete(void* pMemory, std::size_t) noexcept {
    std::free(pMemory);
}
void operator delete[](void* pMemory, std::size_t) noexcept {
    std::free(pMemory);
}

namespace crashvane {

AllocationFailure::AllocationFailure(long nUntilFailure) {
    g_nLeft = nUntilFailure;
    g_bHappened = false;
    g_bArmed = true;
}

AllocationFailure::~AllocationFailure() {
    g_bArmed = false;
}

bool AllocationFailure::Happened() const {
    return g_bHappened;
}

}  // namespace crashvane
