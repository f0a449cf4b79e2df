#include "ui/WinForm.h"

#include "log/Check.h"
#include "ui/Feedback.h"
#include "ui/FileManager.h"
#include "ui/Foreground.h"
#include "ui/LinkControls.h"
#include "ui/LinkFont.h"
#include "ui/MessageBoxes.h"
#include "ui/Registries.h"
#include "ui/SystemLibraries.h"
#include "ui/ZCrashRepair.h"
#include "ui/resources/Ids.h"

namespace crashvane {
namespace {

constexpr COLORREF ViewLinkColour = RGB(0, 0, 255);
constexpr COLORREF FixLinkColour = RGB(255, 0, 0);

WinForm* FormOf(HWND hForm) {
    const auto itForm = FormRegistry().find(hForm);
    return itForm != FormRegistry().end() ? itForm->second : nullptr;
}

}  // namespace

int WinForm::Init(HINSTANCE hInstance, int nImageId, const std::string& strDumpFile, ZCrashRepair* pRepair) {
    int nResult = 0;

    m_hInstance = hInstance;
    m_nImageId = nImageId;
    m_strDumpFile = strDumpFile;
    m_pRepair = pRepair;
    ZTLOG_PROCESS_ERROR(hInstance);

    m_hFont.Reset(CreateLinkFont());
    ZTLOG_PROCESS_ERROR(m_hFont);

    nResult = 1;
Exit0:
    return nResult;
}

INT_PTR WinForm::Show() {
    const LibraryHandle hCommonControls = LoadCommonControls();
    return DialogBoxParamW(m_hInstance, MAKEINTRESOURCEW(ZT_DIALOG_REPORT), nullptr, DialogProcedure,
                           reinterpret_cast<LPARAM>(this));
}

void WinForm::Release() {
    m_hFont.Reset();
    m_hBitMap.Reset();
}

INT_PTR CALLBACK WinForm::DialogProcedure(HWND hForm, UINT uMessage, WPARAM wParam, LPARAM lParam) {
    if (uMessage == WM_INITDIALOG) {
        auto* const pForm = reinterpret_cast<WinForm*>(lParam);
        FormRegistry()[hForm] = pForm;
        pForm->OnInit(hForm);
        ComeToFront(hForm);
        return TRUE;
    }
    WinForm* const pForm = FormOf(hForm);
    return pForm != nullptr ? pForm->OnMessage(hForm, uMessage, wParam, lParam) : FALSE;
}

INT_PTR WinForm::OnMessage(HWND hForm, UINT uMessage, WPARAM wParam, LPARAM lParam) {
    switch (uMessage) {
        case WM_COMMAND:
            return OnCommand(hForm, LOWORD(wParam));
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<INT_PTR>(
                OnStaticColour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_CLOSE:
            // Not handled: the system turns it into the command of the exit button.
            StoreRestart(hForm);
            return FALSE;
        case WM_ACTIVATEAPP:
            if (!wParam) {
                StepBack(hForm);
            }
            return FALSE;
        case WM_DESTROY:
            OnDestroy(hForm);
            return FALSE;
        default:
            return FALSE;
    }
}

bool WinForm::OnCommand(HWND hForm, int nControlId) {
    switch (nControlId) {
        case ZT_CONTROL_SEND:
            StoreRestart(hForm);
            m_strFeedback = FeedbackOf(GetDlgItem(hForm, ZT_CONTROL_FEEDBACK));
            EndDialog(hForm, WinFormSend);
            return true;
        case ZT_CONTROL_EXIT:
            StoreRestart(hForm);
            EndDialog(hForm, WinFormCancel);
            return true;
        default:
            return false;
    }
}

void WinForm::OnDestroy(HWND hForm) {
    RestoreLinks(this);
    FormRegistry().erase(hForm);
}

HBRUSH WinForm::OnStaticColour(HDC hContext, HWND hControl) {
    if (hControl == m_hViewErrorLinkLabel) {
        return LinkColour(hContext, ViewLinkColour);
    }
    if (hControl == m_hFixErrorLinkLabel) {
        SelectObject(hContext, m_hFont.Get());
        return LinkColour(hContext, FixLinkColour);
    }
    return nullptr;
}

// Every painting makes a new brush and none is let go: the dialog lives for seconds, and so does the process.
HBRUSH WinForm::LinkColour(HDC hContext, COLORREF uColour) {
    m_hLinkBrush = CreateSolidBrush(GetSysColor(COLOR_BTNFACE));
    SetTextColor(hContext, uColour);
    SetBkColor(hContext, GetSysColor(COLOR_BTNFACE));
    return m_hLinkBrush;
}

void WinForm::StoreRestart(HWND hForm) {
    m_bRestart = IsDlgButtonChecked(hForm, ZT_CONTROL_RESTART) == BST_CHECKED;
}

void WinForm::ViewReport(HWND hForm) {
    if (!SelectInFileManager(m_strDumpFile)) {
        ShowViewError(hForm);
    }
}

void WinForm::FixError(HWND hForm) {
    // Set before the attempt: the user has seen the offer, and a failed start is not offered again.
    m_bRepairStarted = 1;
    if (!m_pRepair->StartRepair()) {
        ShowRepairError(hForm);
    }
}

}  // namespace crashvane
