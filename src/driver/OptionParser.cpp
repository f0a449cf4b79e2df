#include "driver/OptionParser.h"

#include <cstdio>
#include <cstring>

namespace crashvane {

char* optarg = nullptr;

namespace {

int g_nArgument = 1;                // index of the argument to be read next
const char* g_pszLetter = nullptr;  // inside a cluster: the letter to be read next

void NextArgument() {
    ++g_nArgument;
    g_pszLetter = nullptr;
}

void NextLetter() {
    if (*++g_pszLetter == '\0') {
        NextArgument();
    }
}

// Positions are counted for people: the hyphen is character 1.
void ReportError(int nArgument, int nCharacter, const char* pszFormat, int nLetter) {
    std::fprintf(stderr, "Error in argument %d, char %d: ", nArgument, nCharacter);
    // One of the three messages names no letter.
    // cppcheck-suppress wrongPrintfScanfArgNum
    std::fprintf(stderr, pszFormat, nLetter);
}

// Stands on the first letter of a cluster afterwards; false: the scan is over.
bool BeginCluster(const char* pszArgument) {
    if (pszArgument == nullptr || pszArgument[0] != '-' || pszArgument[1] == '\0') {
        return false;
    }
    if (pszArgument[1] == '-') {
        NextArgument();
        return false;
    }
    g_pszLetter = pszArgument + 1;
    return true;
}

}  // namespace

int NextOption(int argc, char** argv, const char* pszOptions) {
    if (g_nArgument >= argc) {
        return OptionEnd;
    }
    if (g_pszLetter == nullptr && !BeginCluster(argv[g_nArgument])) {
        return OptionEnd;
    }

    const int nArgument = g_nArgument;
    const int nCharacter = static_cast<int>(g_pszLetter - argv[nArgument]) + 1;
    const char cLetter = *g_pszLetter;
    if (cLetter == ':') {
        NextArgument();
        ReportError(nArgument, nCharacter, ": in flags\n", cLetter);
        return OptionError;
    }

    const char* const pszOption = std::strchr(pszOptions, cLetter);
    if (pszOption == nullptr) {
        NextLetter();
        ReportError(nArgument, nCharacter, "option not found %c\n", cLetter);
        return OptionError;
    }
    if (pszOption[1] != ':') {
        NextLetter();
        return cLetter;
    }

    NextArgument();
    if (g_nArgument >= argc) {
        ReportError(nArgument, nCharacter, "no argument for option %c\n", cLetter);
        return OptionError;
    }
    optarg = argv[g_nArgument];
    NextArgument();
    return cLetter;
}

void ResetOptions() {
    g_nArgument = 1;
    g_pszLetter = nullptr;
    optarg = nullptr;
}

}  // namespace crashvane
