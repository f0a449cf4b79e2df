#include "collection/HeapCount.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> g_uHeld = 0;
std::atomic<std::size_t> g_uMost = 0;

}  // namespace

// Each block begins with its size, in a place that keeps the alignment of what follows.
void* operator new(std::size_t uSize) {
    constexpr std::size_t Header = 16;
    char* pBlock = static_cast<char*>(std::malloc(uSize + Header));
    if (pBlock == nullptr) {
        throw std::bad_alloc();
    }
    *reinterpret_cast<std::size_t*>(pBlock) = uSize;
    g_uHeld += uSize;
    g_uMost = (std::max)(g_uMost.load(), g_uHeld.load());
    return pBlock + Header;
}

void operator delete(void* pMemory) noexcept {
    if (pMemory != nullptr) {
        char* pBlock = static_cast<char*>(pMemory) - 16;
        g_uHeld -= *reinterpret_cast<std::size_t*>(pBlock);
        std::free(pBlock);
    }
}

void operator delete(void* pMemory, std::size_t) noexcept {
    operator delete(pMemory);
}

namespace crashvane::test {

HeapPeak::HeapPeak() : m_uBefore(g_uHeld) {
    g_uMost = m_uBefore;
}

std::size_t HeapPeak::Bytes() const {
    return g_uMost - m_uBefore;
}

}  // namespace crashvane::test
