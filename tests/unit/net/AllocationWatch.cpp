#include "net/AllocationWatch.h"

#include <windows.h>

#include <cstdlib>
#include <new>

namespace {

struct State {
    DWORD dwThread = 0;  // 0: nobody watches
    std::size_t uFailing = 0;
    bool bOnce = false;
    std::size_t uCount = 0;
    std::size_t uBytes = 0;
    std::size_t uRefused = 0;
} g_Watch;

void* Allocate(std::size_t uSize) {
    if (g_Watch.dwThread != 0 && g_Watch.dwThread == GetCurrentThreadId()) {
        ++g_Watch.uCount;
        g_Watch.uBytes += uSize;
        if (g_Watch.uFailing != 0 &&
            (g_Watch.bOnce ? g_Watch.uCount == g_Watch.uFailing : g_Watch.uCount >= g_Watch.uFailing)) {
            ++g_Watch.uRefused;
            return nullptr;
        }
    }
    return std::malloc(uSize == 0 ? 1 : uSize);
}

void* AllocateOrThrow(std::size_t uSize) {
    void* const pBlock = Allocate(uSize);
    if (pBlock == nullptr) {
        throw std::bad_alloc();
    }
    return pBlock;
}

}  // namespace

void* operator new(std::size_t uSize) {
    return AllocateOrThrow(uSize);
}
void* operator new[](std::size_t uSize) {
    return AllocateOrThrow(uSize);
}
void* operator new(std::size_t uSize, const std::nothrow_t&) noexcept {
    return Allocate(uSize);
}
void* operator new[](std::size_t uSize, const std::nothrow_t&) noexcept {
    return Allocate(uSize);
}
void operator delete(void* pBlock) noexcept {
    std::free(pBlock);
}
void operator delete[](void* pBlock) noexcept {
    std::free(pBlock);
}
void operator delete(void* pBlock, std::size_t) noexcept {
    std::free(pBlock);
}
void operator delete[](void* pBlock, std::size_t) noexcept {
    std::free(pBlock);
}
void operator delete(void* pBlock, const std::nothrow_t&) noexcept {
    std::free(pBlock);
}
void operator delete[](void* pBlock, const std::nothrow_t&) noexcept {
    std::free(pBlock);
}

namespace crashvane {

AllocationWatch::AllocationWatch() : AllocationWatch(0, RefuseOnce) {}

AllocationWatch::AllocationWatch(std::size_t uFailing, Refusal Kind) {
    g_Watch = {GetCurrentThreadId(), uFailing, Kind == RefuseOnce, 0, 0, 0};
}

AllocationWatch::~AllocationWatch() {
    g_Watch.dwThread = 0;
}

std::size_t AllocationWatch::Count() {
    return g_Watch.uCount;
}
std::size_t AllocationWatch::Bytes() {
    return g_Watch.uBytes;
}
std::size_t AllocationWatch::Refused() {
    return g_Watch.uRefused;
}

}  // namespace crashvane
