// What of the form can be seen without a display; the dialog itself is driven by the end-to-end tests.
#include "ui/WinForm.h"

#include <gmock/gmock.h>

#include "support/LogCapture.h"
#include "ui/Registries.h"
#include "ui/ZCrashRepair.h"

namespace crashvane::test {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

TEST(WinFormTest, NothingIsDecidedBeforeTheDialogWasShown) {
    WinForm Form;
    EXPECT_EQ(Form.GetFeedback(), "");
    EXPECT_EQ(Form.IsRestart(), 0);
    EXPECT_EQ(Form.IsRepairStarted(), 0);
}

TEST(WinFormTest, InitsWithAnInstance) {
    WinForm Form;
    LogCapture Captured;
    EXPECT_EQ(Form.Init(GetModuleHandleW(nullptr), 135, "C:\\crash.dmp", nullptr), 1);
    EXPECT_THAT(Captured.Lines(), ElementsAre());
    Form.Release();
}

TEST(WinFormTest, WithoutAnInstanceInitFailsAndSaysSo) {
    WinForm Form;
    LogCapture Captured;
    EXPECT_EQ(Form.Init(nullptr, 135, "C:\\crash.dmp", nullptr), 0);
    EXPECT_THAT(Captured.Lines(),
                ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(hInstance\\) at line \\d+ in WinForm::Init")));
    Form.Release();
}

TEST(WinFormTest, AWindowWithoutTheLinksIsLeftAlone) {
    WinForm Form;
    LogCapture Captured;
    EXPECT_FALSE(Form.OnInit(nullptr));
    EXPECT_THAT(
        Captured.Lines(),
        ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(m_hViewErrorLinkLabel\\) at line \\d+ in WinForm::OnInit")));
    EXPECT_TRUE(LinkRegistry().empty());
}

TEST(WinFormTest, ATextWithoutItsControlOrFormIsLogged) {
    WinForm Form;
    LogCapture Captured;
    EXPECT_EQ(Form.ChangeControlText(nullptr, 1008, 119), 0);
    EXPECT_EQ(Form.ChangeControlText(nullptr, 103), 0);
    EXPECT_EQ(Form.ChangeControlText(GetDesktopWindow(), 1008, 119), 0);
    const auto Line = [](const std::string& strCondition) {
        return MatchesRegex("ZTLOG_PROCESS_ERROR\\(" + strCondition + "\\) at line \\d+ in WinForm::ChangeControlText");
    };
    EXPECT_THAT(Captured.Lines(), ElementsAre(Line("hForm"), Line("hForm"), Line("hControl")));
}

TEST(WinFormTest, ABannerWithoutItsControlIsLogged) {
    WinForm Form;
    LogCapture Captured;
    EXPECT_EQ(Form.ChangeControlImage(nullptr), 0);
    EXPECT_THAT(
        Captured.Lines(),
        ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(hControl\\) at line \\d+ in WinForm::ChangeControlImage")));
}

TEST(WinFormTest, OtherCommandsAreNotHandled) {
    WinForm Form;
    EXPECT_FALSE(Form.OnCommand(nullptr, 0));
    EXPECT_FALSE(Form.OnCommand(nullptr, 3));
    EXPECT_FALSE(Form.OnCommand(nullptr, 1005));
    EXPECT_FALSE(Form.OnCommand(nullptr, 1006));
}

}  // namespace
}  // namespace crashvane::test
