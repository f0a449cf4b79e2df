// The one window of the program: the error report dialog, and what the user decided in it.
//
// A form is filled with Init, shown once with Show and released; it owns its font and its banner, and outlives its
// dialog. Main thread only. The repair object belongs to the caller and may be null.
#pragma once

#include <windows.h>

#include <string>

#include "util/Handles.h"

namespace crashvane {

class ZCrashRepair;

// How the dialog ended.
enum { WinFormError = -1, WinFormCancel = 0, WinFormSend = 1 };

class WinForm {
  public:
    // nImageId: bitmap resource of the product's banner. strDumpFile: absolute path, ANSI. 0: no instance or no font;
    // call Release then, too.
    int Init(HINSTANCE hInstance, int nImageId, const std::string& strDumpFile, ZCrashRepair* pRepair);

    // Shows the dialog and waits for its end: one of the values above. After WinFormError the thread's last error
    // says why the dialog could not be made.
    INT_PTR Show();

    // Lets go of font and banner.
    void Release();

    // The user's text, ANSI, at most 1023 bytes; empty unless sent.
    [[nodiscard]] const std::string& GetFeedback() const { return m_strFeedback; }
    // The restart box was checked when the dialog ended.
    [[nodiscard]] int IsRestart() const { return m_bRestart; }
    // The fix link was clicked, whether or not the tool could be started.
    [[nodiscard]] int IsRepairStarted() const { return m_bRepairStarted; }

    // The dialog's messages. True: handled well.
    bool OnInit(HWND hForm);
    bool OnCommand(HWND hForm, int nControlId);
    void OnDestroy(HWND hForm);

    // Sets a text of the string table: a control's, or the form's own caption.
    int ChangeControlText(HWND hForm, int nControlId, UINT uTextId);
    int ChangeControlText(HWND hForm, UINT uTextId);
    // Loads the banner and shows it.
    int ChangeControlImage(HWND hForm);

    // The links' clicks.
    void ViewReport(HWND hForm);
    void FixError(HWND hForm);

  private:
    static INT_PTR CALLBACK DialogProcedure(HWND hForm, UINT uMessage, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(HWND hForm, UINT uMessage, WPARAM wParam, LPARAM lParam);
    HBRUSH OnStaticColour(HDC hContext, HWND hControl);
    HBRUSH LinkColour(HDC hContext, COLORREF uColour);
    void StoreRestart(HWND hForm);

    int MakeLinks();
    void Arrange(HWND hForm);
    int LoadText(UINT uTextId, std::string& strText) const;

    HINSTANCE m_hInstance = nullptr;
    int m_nImageId = 0;
    GdiObject<HBITMAP> m_hBitMap;
    GdiObject<HFONT> m_hFont;
    HWND m_hViewErrorLinkLabel = nullptr;
    HWND m_hFixErrorLinkLabel = nullptr;
    HBRUSH m_hLinkBrush = nullptr;
    int m_bRestart = 0;
    std::string m_strFeedback;
    std::string m_strDumpFile;
    int m_bRepairStarted = 0;
    ZCrashRepair* m_pRepair = nullptr;
};

}  // namespace crashvane
