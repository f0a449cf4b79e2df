#include "report/XmlFile.h"

#include <tinyxml.h>

#include <cstddef>
#include <cstdio>
#include <memory>

#include "report/XmlGuard.h"

namespace crashvane {
namespace {

struct StreamCloser {
    void operator()(std::FILE* pStream) const { std::fclose(pStream); }
};
using Stream = std::unique_ptr<std::FILE, StreamCloser>;

// The whole file and a terminating zero; nullptr when it cannot be read, is empty or too large.
std::unique_ptr<char[]> ReadWhole(const std::string& strFileName) {
    const Stream File(std::fopen(strFileName.c_str(), "rb"));
    if (!File || _fseeki64(File.get(), 0, SEEK_END) != 0) {
        return nullptr;
    }
    const long long llSize = _ftelli64(File.get());
    if (llSize <= 0 || llSize > static_cast<long long>(XmlMaxSize)) {
        return nullptr;
    }
    const auto uSize = static_cast<std::size_t>(llSize);
    auto pBytes = std::make_unique_for_overwrite<char[]>(uSize + 1);
    std::rewind(File.get());
    if (std::fread(pBytes.get(), 1, uSize, File.get()) != uSize) {
        return nullptr;
    }
    pBytes[uSize] = '\0';
    return pBytes;
}

// CR LF and CR become LF, in place, as the library does when it reads a file itself. The text ends at its first zero.
void NormalizeLineEnds(char* pszText) {
    char* pTo = pszText;
    for (const char* pFrom = pszText; *pFrom != '\0'; ++pFrom) {
        if (*pFrom != '\r') {
            *pTo++ = *pFrom;
        } else if (pFrom[1] != '\n') {
            *pTo++ = '\n';
        }
    }
    *pTo = '\0';
}

}  // namespace

int LoadXmlFile(const std::string& strFileName, TiXmlDocument& Document) {
    const std::unique_ptr<char[]> pText = ReadWhole(strFileName);
    if (!pText) {
        return 0;
    }
    NormalizeLineEnds(pText.get());
    if (!IsXmlHarmless(pText.get())) {
        return 0;
    }
    // Nobody asks where a mistake stands.
    Document.SetTabSize(0);
    Document.Parse(pText.get(), nullptr, TIXML_ENCODING_LEGACY);
    return Document.Error() ? 0 : 1;
}

int SaveXmlFile(const std::string& strFileName, const TiXmlDocument& Document) {
    // The library's own SaveFile formats every piece into the stream, several times slower.
    TiXmlPrinter Printer;
    Document.Accept(&Printer);
    const std::string& strText = Printer.Str();

    Stream File(std::fopen(strFileName.c_str(), "wt"));
    if (!File || std::fwrite(strText.data(), 1, strText.size(), File.get()) != strText.size()) {
        return 0;
    }
    // The last bytes still lie in the buffer. Wine's fclose does not say when they cannot be written.
    if (std::fflush(File.get()) != 0) {
        return 0;
    }
    return std::fclose(File.release()) == 0 ? 1 : 0;
}

}  // namespace crashvane
