#include "ui/MessageBoxes.h"

namespace crashvane {
namespace {

constexpr wchar_t ErrorCaption[] = L"错误";

void ShowWarning(HWND hOwner, const wchar_t* pszText) {
    MessageBoxW(hOwner, pszText, ErrorCaption, MB_OK | MB_ICONWARNING | MB_SETFOREGROUND);
}

}  // namespace

bool AskForRepair() {
    return MessageBoxW(nullptr, L"经分析，本次崩溃已经有了解决方案，点击“确定”查看详情", L"客户端问题",
                       MB_OKCANCEL | MB_ICONQUESTION | MB_SETFOREGROUND) == IDOK;
}

void ShowRepairError(HWND hOwner) {
    ShowWarning(hOwner, L"查看修复方案出错!");
}

void ShowViewError(HWND hOwner) {
    ShowWarning(hOwner, L"查看错误报告出错!");
}

}  // namespace crashvane
