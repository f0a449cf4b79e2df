// Run-time of the checked build: the compiler calls __asan_load/store before every access, and this decides.
//
// All blocks of malloc and new come from one arena that is never reused, so that a stale pointer stays stale; before
// and behind each block lies poisoned ground. A shadow byte tells of eight bytes how many may be touched (0: all).
// Accesses outside the arena (stack, globals, blocks of Windows) are not judged. The program ends with 86 at the first
// wrong access, saying which on standard error.
//
// This file itself is built without the checks.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>

extern "C" {
void* __real_malloc(std::size_t uSize);
void __real_free(void* pBlock);
void* __real_realloc(void* pBlock, std::size_t uSize);
void* __real_memcpy(void* pTo, const void* pFrom, std::size_t uSize);
void* __real_memmove(void* pTo, const void* pFrom, std::size_t uSize);
void* __real_memset(void* pTo, int nByte, std::size_t uSize);
void* __wrap_malloc(std::size_t uSize);
void __wrap_free(void* pBlock);
}

namespace {

constexpr std::uintptr_t ARENA_SIZE = 32ULL << 30;  // address space; memory is committed as it is used
constexpr std::uintptr_t CHUNK = 16ULL << 20;       // committed at a time
constexpr std::uintptr_t RED_ZONE = 32;             // in front, with the block's size in it
constexpr std::uintptr_t GIVE_BACK = 1ULL << 16;    // a freed block this large gives its pages back
constexpr unsigned char POISON = 0xFF;
constexpr int EXIT_CODE = 86;

std::uintptr_t g_uArena = 0;
std::uintptr_t g_uNext = 0;
std::uintptr_t g_uCommitted = 0;
unsigned char* g_pShadow = nullptr;
SRWLOCK g_Lock = SRWLOCK_INIT;

[[noreturn]] void Report(const char* pszWhat, std::uintptr_t uAddress, std::size_t uSize, const void* pCaller) {
    char szLine[160];
    const int nLength =
        std::snprintf(szLine, sizeof(szLine), "CHECKED BUILD: wrong %s of %llu bytes at %p, called from %p\n", pszWhat,
                      static_cast<unsigned long long>(uSize), reinterpret_cast<void*>(uAddress), pCaller);
    DWORD dwWritten = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), szLine, static_cast<DWORD>(nLength), &dwWritten, nullptr);
    TerminateProcess(GetCurrentProcess(), EXIT_CODE);
    __builtin_unreachable();
}

bool IsOurs(std::uintptr_t uAddress) { return uAddress - g_uArena < ARENA_SIZE && g_uArena != 0; }

unsigned char* ShadowOf(std::uintptr_t uAddress) { return g_pShadow + ((uAddress - g_uArena) >> 3); }

void MakeArena() {
    void* pShadow = VirtualAlloc(nullptr, ARENA_SIZE >> 3, MEM_RESERVE, PAGE_READWRITE);
    void* pArena = VirtualAlloc(nullptr, ARENA_SIZE, MEM_RESERVE, PAGE_READWRITE);
    if (pShadow == nullptr || pArena == nullptr) {
        Report("start: no address space for a block", 0, ARENA_SIZE, nullptr);
    }
    g_pShadow = static_cast<unsigned char*>(pShadow);
    g_uArena = reinterpret_cast<std::uintptr_t>(pArena);
    g_uNext = g_uCommitted = g_uArena;
}

// False: the system has no memory.
bool CommitUpTo(std::uintptr_t uEnd) {
    while (g_uCommitted < uEnd) {
        if (VirtualAlloc(reinterpret_cast<void*>(g_uCommitted), CHUNK, MEM_COMMIT, PAGE_READWRITE) == nullptr ||
            VirtualAlloc(ShadowOf(g_uCommitted), CHUNK >> 3, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
            return false;
        }
        __real_memset(ShadowOf(g_uCommitted), POISON, CHUNK >> 3);
        g_uCommitted += CHUNK;
    }
    return true;
}

void* Allocate(std::size_t uSize) {
    AcquireSRWLockExclusive(&g_Lock);
    if (g_uArena == 0) {
        MakeArena();
    }
    const std::uintptr_t uBlock = g_uNext + RED_ZONE;
    const std::uintptr_t uEnd = (uBlock + uSize + RED_ZONE + 15) & ~std::uintptr_t{15};
    if (uSize > ARENA_SIZE / 2 || uEnd > g_uArena + ARENA_SIZE || !CommitUpTo(uEnd)) {
        ReleaseSRWLockExclusive(&g_Lock);
        return nullptr;
    }
    g_uNext = uEnd - 16;
    *reinterpret_cast<std::size_t*>(uBlock - 16) = uSize;
    __real_memset(ShadowOf(uBlock), 0, uSize >> 3);
    if ((uSize & 7) != 0) {
        ShadowOf(uBlock)[uSize >> 3] = static_cast<unsigned char>(uSize & 7);
    }
    ReleaseSRWLockExclusive(&g_Lock);
    return reinterpret_cast<void*>(uBlock);
}

std::size_t SizeOf(void* pBlock) { return *(static_cast<std::size_t*>(pBlock) - 2); }

void Free(void* pBlock, const void* pCaller) {
    const std::uintptr_t uBlock = reinterpret_cast<std::uintptr_t>(pBlock);
    const std::size_t uSize = SizeOf(pBlock);
    if ((uBlock & 15) != 0 || (uSize != 0 && *ShadowOf(uBlock) == POISON)) {
        Report("release (twice, or of no block)", uBlock, 0, pCaller);
    }
    AcquireSRWLockExclusive(&g_Lock);
    __real_memset(ShadowOf(uBlock), POISON, (uSize + 7) >> 3);
    if (uSize >= GIVE_BACK) {
        const std::uintptr_t uFirst = (uBlock + 0xFFFF) & ~std::uintptr_t{0xFFFF};
        const std::uintptr_t uLast = (uBlock + uSize) & ~std::uintptr_t{0xFFFF};
        if (uLast > uFirst) {
            // Decommitted pages fault when touched; the shadow tells of it before.
            VirtualFree(reinterpret_cast<void*>(uFirst), uLast - uFirst, MEM_DECOMMIT);
        }
    }
    ReleaseSRWLockExclusive(&g_Lock);
}

void Check(std::uintptr_t uAddress, std::size_t uSize, const char* pszWhat, const void* pCaller) {
    if (uSize == 0 || !IsOurs(uAddress)) {
        return;
    }
    const std::uintptr_t uLast = uAddress + uSize - 1;
    for (std::uintptr_t uAt = uAddress & ~std::uintptr_t{7}; uAt <= uLast; uAt += 8) {
        const unsigned char cShadow = uAt < g_uCommitted ? *ShadowOf(uAt) : POISON;
        const std::uintptr_t uTouched = (uLast - uAt < 7) ? uLast - uAt : 7;
        if (cShadow != 0 && (cShadow == POISON || uTouched >= cShadow)) {
            Report(pszWhat, uAddress, uSize, pCaller);
        }
    }
}

}  // namespace

#define CALLER __builtin_return_address(0)
#define ACCESS_CHECK(size)                                                                                      \
    void __asan_load##size##_noabort(std::uintptr_t uAddress) { Check(uAddress, size, "read", CALLER); }        \
    void __asan_store##size##_noabort(std::uintptr_t uAddress) { Check(uAddress, size, "write", CALLER); }

extern "C" {

ACCESS_CHECK(1)
ACCESS_CHECK(2)
ACCESS_CHECK(4)
ACCESS_CHECK(8)
ACCESS_CHECK(16)
void __asan_loadN_noabort(std::uintptr_t uAddress, std::size_t uSize) { Check(uAddress, uSize, "read", CALLER); }
void __asan_storeN_noabort(std::uintptr_t uAddress, std::size_t uSize) { Check(uAddress, uSize, "write", CALLER); }
void __asan_handle_no_return() {}
void __asan_before_dynamic_init(const char*) {}
void __asan_after_dynamic_init() {}

void* __wrap_malloc(std::size_t uSize) { return Allocate(uSize); }

void* __wrap_calloc(std::size_t uCount, std::size_t uSize) {
    std::size_t uBytes = 0;
    void* pBlock = __builtin_mul_overflow(uCount, uSize, &uBytes) ? nullptr : Allocate(uBytes);
    return pBlock != nullptr ? __real_memset(pBlock, 0, uBytes) : nullptr;
}

void __wrap_free(void* pBlock) {
    if (IsOurs(reinterpret_cast<std::uintptr_t>(pBlock))) {
        Free(pBlock, CALLER);
    } else {
        __real_free(pBlock);
    }
}

void* __wrap_realloc(void* pBlock, std::size_t uSize) {
    if (pBlock != nullptr && !IsOurs(reinterpret_cast<std::uintptr_t>(pBlock))) {
        return __real_realloc(pBlock, uSize);
    }
    void* pNew = Allocate(uSize);
    if (pNew != nullptr && pBlock != nullptr) {
        __real_memcpy(pNew, pBlock, SizeOf(pBlock) < uSize ? SizeOf(pBlock) : uSize);
        Free(pBlock, CALLER);
    }
    return pNew;
}

void* __wrap_memcpy(void* pTo, const void* pFrom, std::size_t uSize) {
    Check(reinterpret_cast<std::uintptr_t>(pFrom), uSize, "copy from", CALLER);
    Check(reinterpret_cast<std::uintptr_t>(pTo), uSize, "copy to", CALLER);
    return __real_memcpy(pTo, pFrom, uSize);
}

void* __wrap_memmove(void* pTo, const void* pFrom, std::size_t uSize) {
    Check(reinterpret_cast<std::uintptr_t>(pFrom), uSize, "move from", CALLER);
    Check(reinterpret_cast<std::uintptr_t>(pTo), uSize, "move to", CALLER);
    return __real_memmove(pTo, pFrom, uSize);
}

void* __wrap_memset(void* pTo, int nByte, std::size_t uSize) {
    Check(reinterpret_cast<std::uintptr_t>(pTo), uSize, "fill", CALLER);
    return __real_memset(pTo, nByte, uSize);
}

}  // extern "C"
