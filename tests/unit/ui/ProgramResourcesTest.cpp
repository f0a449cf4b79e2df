// Icon, manifest and version of the program.
#include <gmock/gmock.h>

#include <algorithm>

#include "ui/Resources.h"

namespace crashvane::test {
namespace {

std::string Manifest() {
    const std::vector<unsigned char> Bytes = ResourceBytes(RT_MANIFEST, 1, 0);
    return {Bytes.begin(), Bytes.end()};
}

TEST(ProgramResourcesTest, TheIconComesInAllSizes) {
    const std::vector<unsigned char> Bytes = ResourceBytes(RT_GROUP_ICON, 134, 0);
    Reader From(Bytes, 4);
    std::vector<int> Widths;
    for (int nLeft = From.Take<WORD>(); nLeft > 0; --nLeft) {
        const int nWidth = From.Take<BYTE>();
        Widths.push_back(nWidth == 0 ? 256 : nWidth);
        EXPECT_EQ(From.Take<BYTE>(), nWidth);
        From.TakeText(6);  // colours, planes, depth, bytes, id
    }
    EXPECT_THAT(Widths, testing::UnorderedElementsAre(16, 24, 32, 48, 256));
}

TEST(ProgramResourcesTest, TheManifestAsksForThemedControlsPlainRightsAndRealPixels) {
    const std::string strManifest = Manifest();
    EXPECT_THAT(strManifest, testing::HasSubstr("name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\""));
    EXPECT_THAT(strManifest, testing::HasSubstr("<requestedExecutionLevel level=\"asInvoker\" uiAccess=\"false\"/>"));
    EXPECT_THAT(strManifest,
                testing::HasSubstr("<dpiAware xmlns=\"http://schemas.microsoft.com/SMI/2005/WindowsSettings\">true<"));
}

TEST(ProgramResourcesTest, TheManifestLeavesTheCodePageToTheSystem) {
    EXPECT_THAT(Manifest(), testing::Not(testing::HasSubstr("activeCodePage")));
}

TEST(ProgramResourcesTest, TheManifestNamesTheSystemsFromWindows7On) {
    for (const char* pszId : {"{35138b9a-5d96-4fbd-8e2d-a2440225f93a}", "{4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38}",
                              "{1f676c76-80e1-4239-95bb-83d0f6d0da78}", "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"}) {
        EXPECT_THAT(Manifest(), testing::HasSubstr(pszId));
    }
}

TEST(ProgramResourcesTest, TheVersionIsTheProjects) {
    const std::vector<unsigned char> Bytes = ResourceBytes(RT_VERSION, 1, 0);
    const unsigned char Signature[] = {0xBD, 0x04, 0xEF, 0xFE};
    const auto itAt = std::search(Bytes.begin(), Bytes.end(), std::begin(Signature), std::end(Signature));
    ASSERT_NE(itAt, Bytes.end());
    Reader From(Bytes, static_cast<std::size_t>(itAt - Bytes.begin()) + 8);
    const unsigned uMost = From.Take<DWORD>();
    const unsigned uLeast = From.Take<DWORD>();
    const std::string strVersion = std::to_string(uMost >> 16) + "." + std::to_string(uMost & 0xFFFF) + "." +
                                   std::to_string(uLeast >> 16) + "." + std::to_string(uLeast & 0xFFFF);
    EXPECT_EQ(strVersion, CRASHVANE_TEST_VERSION ".0");
}

}  // namespace
}  // namespace crashvane::test
