// The dialog's template as it lies in the program, field by field.
#include <gmock/gmock.h>

#include <ostream>

#include "ui/Resources.h"

namespace crashvane::test {
namespace {

struct Control {
    unsigned uId;
    std::wstring strClass;  // "#128" button, "#129" edit, "#130" static
    unsigned uStyle;
    unsigned uExStyle;
    int nLeft, nTop, nWidth, nHeight;
    std::wstring strText;

    bool operator==(const Control&) const = default;
    friend void PrintTo(const Control& One, std::ostream* pStream) {
        *pStream << One.uId << " style " << std::hex << One.uStyle << " ex " << One.uExStyle << std::dec << " at "
                 << One.nLeft << "," << One.nTop << " " << One.nWidth << "x" << One.nHeight << " class "
                 << std::string(One.strClass.begin(), One.strClass.end());
    }
};

struct Dialog {
    unsigned uStyle = 0;
    unsigned uExStyle = 0;
    int nLeft = 0, nTop = 0, nWidth = 0, nHeight = 0;
    std::wstring strMenu, strClass, strCaption, strFace;
    int nPoints = 0, nWeight = 0, nItalic = 0, nCharacterSet = 0;
    std::vector<Control> Controls;
    std::size_t uUnread = 1;
};

Control ReadControl(Reader& From) {
    Control One = {};
    From.AlignTo4();
    From.Take<DWORD>();  // help id
    One.uExStyle = From.Take<DWORD>();
    One.uStyle = From.Take<DWORD>();
    One.nLeft = From.Take<short>();
    One.nTop = From.Take<short>();
    One.nWidth = From.Take<short>();
    One.nHeight = From.Take<short>();
    One.uId = From.Take<DWORD>();
    One.strClass = From.TakeTextOrNumber();
    One.strText = From.TakeTextOrNumber();
    From.Take<WORD>();  // no creation data
    return One;
}

Dialog ReadDialog() {
    const std::vector<unsigned char> Bytes = ResourceBytes(RT_DIALOG, 102, 0);
    Reader From(Bytes);
    Dialog Read;
    EXPECT_EQ(From.Take<WORD>(), 1);
    EXPECT_EQ(From.Take<WORD>(), 0xFFFF);
    From.Take<DWORD>();  // help id
    Read.uExStyle = From.Take<DWORD>();
    Read.uStyle = From.Take<DWORD>();
    const int nControls = From.Take<WORD>();
    Read.nLeft = From.Take<short>();
    Read.nTop = From.Take<short>();
    Read.nWidth = From.Take<short>();
    Read.nHeight = From.Take<short>();
    Read.strMenu = From.TakeTextOrNumber();
    Read.strClass = From.TakeTextOrNumber();
    Read.strCaption = From.TakeTextOrNumber();
    Read.nPoints = From.Take<WORD>();
    Read.nWeight = From.Take<WORD>();
    Read.nItalic = From.Take<BYTE>();
    Read.nCharacterSet = From.Take<BYTE>();
    Read.strFace = From.TakeTextOrNumber();
    for (int nControl = 0; nControl < nControls; ++nControl) {
        Read.Controls.push_back(ReadControl(From));
    }
    Read.uUnread = Bytes.size() - From.At();
    return Read;
}

TEST(DialogTemplateTest, IsAPopUpWithCaptionCentredAndBroughtToTheForeground) {
    const Dialog Read = ReadDialog();
    constexpr unsigned uPopUp = 0x80000000;
    constexpr unsigned uCaption = 0x00C00000;
    constexpr unsigned uSystemMenu = 0x00080000;
    constexpr unsigned uModalFrame = 0x80;
    constexpr unsigned uCentred = 0x800;
    constexpr unsigned uForeground = 0x200;
    constexpr unsigned uOwnFont = 0x40;
    EXPECT_EQ(Read.uStyle, uPopUp | uCaption | uSystemMenu | uModalFrame | uCentred | uForeground | uOwnFont);
    EXPECT_EQ(Read.uExStyle, 0U);
    EXPECT_EQ(Read.nWidth, 299);
    EXPECT_EQ(Read.nHeight, 234);
    EXPECT_EQ(Read.strMenu, L"");
    EXPECT_EQ(Read.strClass, L"");
}

TEST(DialogTemplateTest, HasItsOwnFont) {
    const Dialog Read = ReadDialog();
    EXPECT_EQ(Read.strFace, L"MS Shell Dlg");
    EXPECT_EQ(Read.nPoints, 8);
    EXPECT_EQ(Read.nWeight, 400);
    EXPECT_EQ(Read.nItalic, 0);
}

TEST(DialogTemplateTest, HasItsControlsInOrderWithTheirPlacesAndStyles) {
    constexpr unsigned uSeen = 0x50000000;  // child, visible
    constexpr unsigned uTab = 0x00010000;
    constexpr unsigned uGroup = 0x00020000;
    constexpr unsigned uNotify = 0x100;
    constexpr unsigned uBitmap = 0xE;
    constexpr unsigned uRealSize = 0x800;
    constexpr unsigned uVerticalScroll = 0x00200000;
    constexpr unsigned uMultiLine = 0x4;
    constexpr unsigned uAutoVerticalScroll = 0x40;
    constexpr unsigned uWantReturn = 0x1000;
    const std::vector<Control> Expected = {
        {1, L"#128", uSeen | uTab | uGroup | 1, 0, 180, 213, 65, 14, L""},
        {2, L"#128", uSeen | uTab | uGroup, 0, 251, 213, 42, 14, L""},
        {1012, L"#130", uSeen | uBitmap | uRealSize, 0x20, 0, 0, 299, 47, L"#108"},
        {1013, L"#130", uSeen, 0x20000, 0, 47, 299, 1, L""},
        {1003, L"#129", uSeen | uTab | uMultiLine | uAutoVerticalScroll | uWantReturn | uVerticalScroll, 0x200, 9, 132,
         278, 61, L""},
        {1008, L"#130", uSeen, 0, 8, 56, 284, 8, L""},
        {1005, L"#130", uSeen | uNotify, 0, 180, 87, 108, 8, L""},
        {1011, L"#128", uSeen | 7, 0, 3, 121, 291, 76, L""},
        {1009, L"#130", uSeen, 0, 8, 72, 267, 8, L""},
        {1010, L"#130", uSeen, 0, 8, 87, 152, 8, L""},
        {1006, L"#128", uSeen | uTab | 3, 0, 10, 103, 97, 10, L""},
        {1007, L"#130", uSeen | uNotify, 0, 119, 104, 149, 8, L""},
    };
    const Dialog Read = ReadDialog();
    EXPECT_THAT(Read.Controls, testing::ElementsAreArray(Expected));
    EXPECT_EQ(Read.uUnread, 0U);
}

TEST(DialogTemplateTest, NamesABitmapThatTheProgramDoesNotCarry) {
    EXPECT_EQ(FindResourceA(nullptr, MAKEINTRESOURCEA(108), RT_BITMAP), nullptr);
}

}  // namespace
}  // namespace crashvane::test
