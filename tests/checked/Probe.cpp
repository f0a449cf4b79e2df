// Commits one mistake, named by the first argument: the checked build has to see each. "none" ends with 0.
#include <windows.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace {

volatile int g_nSink = 0;
volatile std::size_t g_uEight = 8;

int Mistake(const std::string& strName) {
    const std::size_t uSize = g_uEight;
    if (strName == "overflow") {
        char* pBlock = new char[uSize];
        pBlock[uSize] = 1;
        g_nSink = pBlock[uSize];
        delete[] pBlock;
    } else if (strName == "underflow") {
        char* pBlock = new char[uSize];
        g_nSink = *(pBlock - 1);
        delete[] pBlock;
    } else if (strName == "use-after-free") {
        int* pNumber = new int(3);
        delete pNumber;
        g_nSink = *const_cast<volatile int*>(pNumber);
    } else if (strName == "double-free") {
        char* pBlock = new char[uSize];
        delete[] pBlock;
        delete[] pBlock;
    } else if (strName == "wide") {
        wchar_t* pText = new wchar_t[uSize / 2];
        pText[uSize / 2] = L'x';
        g_nSink = pText[uSize / 2];
        delete[] pText;
    } else if (strName == "memcpy") {
        std::vector<char> From(uSize);
        std::vector<char> To(uSize - 1);
        std::memcpy(To.data(), From.data(), uSize);
        g_nSink = To[0];
    } else if (strName == "undefined") {
        int nLargest = std::numeric_limits<int>::max() - 8;
        nLargest += static_cast<int>(uSize) + 1;
        g_nSink = nLargest;
    } else if (strName == "assertion") {
        const std::vector<int> Numbers(uSize);
        g_nSink = Numbers[uSize];
    } else if (strName == "stack") {
        char szText[8];
        volatile char* pText = szText;
        for (std::size_t uAt = 0; uAt < uSize * 8; ++uAt) {
            pText[uAt] = 'x';
        }
        g_nSink = szText[0];
    } else {
        return strName == "none" ? 0 : 2;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    return argc == 2 ? Mistake(argv[1]) : 2;
}
