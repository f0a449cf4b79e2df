#include "ui/FileManager.h"

#include <windows.h>

#include <shellapi.h>

#include "ui/SystemLibraries.h"
#include "util/Text.h"

namespace crashvane {

bool SelectInFileManager(const std::string& strPath) {
    LibraryHandle hLibrary = OpenSystemLibrary(L"shell32.dll");
    if (!hLibrary) {
        return false;
    }
    // The shell may leave threads running behind a start, so it stays loaded until the process ends.
    const auto pfnExecute = reinterpret_cast<decltype(&ShellExecuteW)>(
        reinterpret_cast<void*>(GetProcAddress(hLibrary.Release(), "ShellExecuteW")));
    if (pfnExecute == nullptr) {
        return false;
    }
    const std::wstring strParameters = L"/select," + ToUtf16(strPath);
    const HINSTANCE hResult = pfnExecute(nullptr, L"open", L"explorer", strParameters.c_str(), nullptr, SW_SHOWNORMAL);
    // Values up to 32 are error codes.
    return reinterpret_cast<INT_PTR>(hResult) > 32;
}

}  // namespace crashvane
