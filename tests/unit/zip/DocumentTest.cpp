// The example in the description of the format is what the writer writes.
#include <gmock/gmock.h>

#include <sstream>

#include "support/TempFolder.h"
#include "zip/ArchiveWalk.h"
#include "zip/SourceFiles.h"
#include "zip/ZipWriter.h"

namespace crashvane {
namespace {

using test::TempFolder;

constexpr std::int64_t LeapDay = 1709210096;  // 2024-02-29 12:34:56

// The bytes of the page's example, a line "offset  bytes ; meaning" each. Offsets that are wrong are complained of.
std::string BytesOfTheExample() {
    std::istringstream Lines(TempFolder::Read(CRASHVANE_SOURCE_DIR "/docs/archive-format.md"));
    std::string strResult;
    std::string strLine;
    while (std::getline(Lines, strLine) && strLine != "## An archive, byte by byte") {
    }
    while (std::getline(Lines, strLine) && strLine != "```") {
    }
    while (std::getline(Lines, strLine) && strLine != "```") {
        EXPECT_EQ(std::stoul(strLine.substr(0, 4), nullptr, 16), strResult.size()) << strLine;
        strResult += test::FromHex(strLine.substr(4, strLine.find(';') - 4));
    }
    return strResult;
}

TEST(ArchiveFormatPage, ShowsWhatTheWriterWrites) {
    TempFolder Folder;
    const std::string strOld = Folder.Write("old.ZIP", "hello");
    const std::string strEmpty = Folder.Write("a.txt", "");
    for (const std::string& strSource : {strOld, strEmpty}) {
        test::SetTimes(strSource, LeapDay, LeapDay + 1);
        ASSERT_EQ(test::CreationTime(strSource), LeapDay);
    }
    ZipArchive* pArchive = ZipWriter::CreateArchive(Folder.Path("archive.zip"));
    EXPECT_EQ(ZipWriter::AddFile(pArchive, strOld), 1);
    EXPECT_EQ(ZipWriter::AddFile(pArchive, strEmpty, "logs\\a.txt"), 1);
    EXPECT_EQ(ZipWriter::Close(pArchive), unsigned{ZipOk});
    const std::string strExample = BytesOfTheExample();
    EXPECT_GT(strExample.size(), 200U);
    EXPECT_EQ(TempFolder::Read(Folder.Path("archive.zip")), strExample);
}

}  // namespace
}  // namespace crashvane
