// The form before it is seen: links, banner, texts and what follows from the texts' lengths.
#include "log/Check.h"
#include "ui/Banner.h"
#include "ui/LinkControls.h"
#include "ui/TextFit.h"
#include "ui/WinForm.h"
#include "ui/ZCrashRepair.h"
#include "ui/resources/Ids.h"

namespace crashvane {
namespace {

constexpr int TextLimit = 1024;  // bytes, terminator included

struct ControlText {
    int nControlId;
    UINT uTextId;
};

// In the order in which they are set, behind the caption.
constexpr ControlText ControlTexts[] = {
    {ZT_CONTROL_FIRST_LINE, ZT_TEXT_FIRST_LINE},
    {ZT_CONTROL_SECOND_LINE, ZT_TEXT_SECOND_LINE},
    {ZT_CONTROL_PRIVACY_LINE, ZT_TEXT_PRIVACY_LINE},
    {ZT_CONTROL_VIEW_LINK, ZT_TEXT_VIEW_LINK},
    {ZT_CONTROL_SEND, ZT_TEXT_SEND},
    {ZT_CONTROL_EXIT, ZT_TEXT_EXIT},
    {ZT_CONTROL_RESTART, ZT_TEXT_RESTART},
    {ZT_CONTROL_FRAME, ZT_TEXT_FRAME},
    {ZT_CONTROL_FIX_LINK, ZT_TEXT_FIX_LINK},
};

void ShowIcon(HINSTANCE hInstance, HWND hForm, WPARAM wKind, int nWidthMetric, int nHeightMetric) {
    const HANDLE hIcon = LoadImageW(hInstance, MAKEINTRESOURCEW(ZT_ICON_PROGRAM), IMAGE_ICON,
                                    GetSystemMetrics(nWidthMetric), GetSystemMetrics(nHeightMetric), LR_SHARED);
    SendMessageW(hForm, WM_SETICON, wKind, reinterpret_cast<LPARAM>(hIcon));
}

}  // namespace

bool WinForm::OnInit(HWND hForm) {
    bool bResult = false;
    int nRetCode = 0;

    m_hViewErrorLinkLabel = GetDlgItem(hForm, ZT_CONTROL_VIEW_LINK);
    ZTLOG_PROCESS_ERROR(m_hViewErrorLinkLabel);
    m_hFixErrorLinkLabel = GetDlgItem(hForm, ZT_CONTROL_FIX_LINK);
    ZTLOG_PROCESS_ERROR(m_hFixErrorLinkLabel);

    nRetCode = MakeLinks();
    ZTLOG_PROCESS_ERROR(nRetCode);

    nRetCode = ChangeControlImage(hForm);
    ZTLOG_CHECK_ERROR(nRetCode);

    nRetCode = ChangeControlText(hForm, ZT_TEXT_CAPTION);
    ZTLOG_CHECK_ERROR(nRetCode);
    for (const ControlText& Text : ControlTexts) {
        nRetCode = ChangeControlText(hForm, Text.nControlId, Text.uTextId);
        ZTLOG_CHECK_ERROR(nRetCode);
    }
    Arrange(hForm);

    bResult = true;
Exit0:
    return bResult;
}

int WinForm::MakeLinks() {
    const int nRetCode =
        MakeLink(m_hViewErrorLinkLabel, this, [](WinForm& Form, HWND hForm) { Form.ViewReport(hForm); });
    if (!nRetCode) {
        return 0;
    }
    if (m_pRepair == nullptr || !m_pRepair->IsFound()) {
        ShowWindow(m_hFixErrorLinkLabel, SW_HIDE);
        return 1;
    }
    return MakeLink(m_hFixErrorLinkLabel, this, [](WinForm& Form, HWND hForm) { Form.FixError(hForm); });
}

int WinForm::ChangeControlImage(HWND hForm) {
    int nResult = 0;
    HWND hControl = nullptr;

    hControl = GetDlgItem(hForm, ZT_CONTROL_BANNER);
    ZTLOG_PROCESS_ERROR(hControl);

    m_hBitMap.Reset(LoadBanner(m_hInstance, m_nImageId, hControl));
    ZTLOG_PROCESS_ERROR(m_hBitMap);

    SendMessageW(hControl, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(m_hBitMap.Get()));
    nResult = 1;
Exit0:
    return nResult;
}

int WinForm::ChangeControlText(HWND hForm, int nControlId, UINT uTextId) {
    int nResult = 0;
    int nRetCode = 0;
    HWND hControl = nullptr;
    std::string strText;

    ZTLOG_PROCESS_ERROR(hForm);
    hControl = GetDlgItem(hForm, nControlId);
    ZTLOG_PROCESS_ERROR(hControl);
    nRetCode = LoadText(uTextId, strText);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = SetWindowTextA(hControl, strText.c_str());
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int WinForm::ChangeControlText(HWND hForm, UINT uTextId) {
    int nResult = 0;
    int nRetCode = 0;
    std::string strText;

    ZTLOG_PROCESS_ERROR(hForm);
    nRetCode = LoadText(uTextId, strText);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = SetWindowTextA(hForm, strText.c_str());
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

// The loader picks the table of the user's language and converts to the ANSI code page.
int WinForm::LoadText(UINT uTextId, std::string& strText) const {
    char szText[TextLimit] = {};
    const int nLength = LoadStringA(m_hInstance, uTextId, szText, TextLimit);
    strText.assign(szText, static_cast<std::size_t>(nLength > 0 ? nLength : 0));
    return nLength > 0;
}

void WinForm::Arrange(HWND hForm) {
    // Painting selects the font as well, but not everywhere does the control keep to that.
    SendMessageW(m_hFixErrorLinkLabel, WM_SETFONT, reinterpret_cast<WPARAM>(m_hFont.Get()), FALSE);
    for (const int nControlId : {ZT_CONTROL_FIRST_LINE, ZT_CONTROL_SECOND_LINE, ZT_CONTROL_PRIVACY_LINE,
                                 ZT_CONTROL_VIEW_LINK, ZT_CONTROL_FIX_LINK}) {
        FitText(hForm, GetDlgItem(hForm, nControlId));
    }
    // A screen reader names the edit by the text in front of it, which is to be the frame's, not the empty line's.
    SetWindowPos(GetDlgItem(hForm, ZT_CONTROL_FRAME), GetDlgItem(hForm, ZT_CONTROL_SEPARATOR), 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ShowIcon(m_hInstance, hForm, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
    ShowIcon(m_hInstance, hForm, ICON_BIG, SM_CXICON, SM_CYICON);
}

}  // namespace crashvane
