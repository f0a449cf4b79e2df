#include "net/MultipartBody.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>

#include "net/AllocationWatch.h"
#include "net/TempFolder.h"
#include "util/Handles.h"

namespace crashvane {
namespace {

// The text of a form without or around a file.
std::string Text(const ParameterMap& Parameters, const UploadFile& File = {}) {
    MultipartText Result;
    return FormMultipartText(L"BOUND", Parameters, File, Result) ? Result.strHead + "<FILE>" + Result.strTail
                                                                 : "failed";
}

bool Builds(const std::string& strFile) {
    MultipartBody Body;
    return Body.Build(L"BOUND", {}, {Wide(strFile), L"File"});
}

std::string BuiltBytes(const ParameterMap& Parameters, const UploadFile& File) {
    MultipartBody Body;
    return Body.Build(L"BOUND", Parameters, File) ? std::string(Body.Data(), Body.Size()) : "failed";
}

std::string AllBytes() {
    std::string strBytes;
    for (int nAt = 0; nAt < 256; ++nAt) {
        strBytes += static_cast<char>(nAt);
    }
    return strBytes;
}

// Takes no space on the disk.
void MakeSparseFile(const std::string& strPath, long long nSize) {
    LARGE_INTEGER Size = {};
    Size.QuadPart = nSize;
    const FileHandle hFile(CreateFileA(strPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ASSERT_TRUE(hFile);
    ASSERT_TRUE(SetFilePointerEx(hFile.Get(), Size, nullptr, FILE_BEGIN));
    ASSERT_TRUE(SetEndOfFile(hFile.Get()));
}

TEST(Boundary, IsTwentySevenHyphensAndTheTwoFirstNumbersOfAnUnseededGenerator) {
    std::srand(1);
    EXPECT_EQ(MakeBoundary(), L"---------------------------0000002900004823");
}

TEST(Boundary, DrawsTwoMoreNumbersEachTime) {
    std::srand(1);
    MakeBoundary();
    EXPECT_EQ(MakeBoundary(), L"---------------------------000018BE00006784");
}

TEST(ParameterNames, MayHoldEveryPrintableCharacterButTheDoubleQuote) {
    for (wchar_t cAt = 1; cAt < 300; ++cAt) {
        EXPECT_EQ(AreNamesValid({{std::wstring(L"a") + cAt, L""}}), cAt >= 32 && cAt <= 127 && cAt != L'"') << int(cAt);
    }
    EXPECT_FALSE(AreNamesValid({{L"\u5D29", L""}}));
    EXPECT_FALSE(AreNamesValid({{std::wstring(L"a\0b", 3), L""}}));
}

TEST(ParameterNames, AreNeverEmpty) {
    EXPECT_FALSE(AreNamesValid({{L"", L"value"}}));
    EXPECT_TRUE(AreNamesValid({}));
}

TEST(ParameterNames, AreAllLookedAt) {
    EXPECT_FALSE(AreNamesValid({{L"a", L""}, {L"b\"", L""}, {L"c", L""}}));
}

TEST(ParameterNames, AreAllThatIsLookedAt) {
    EXPECT_TRUE(AreNamesValid({{L"a", L"\"\r\n\u5D29"}}));
}

TEST(MultipartText, EndsInAnEmptyLineBeforeTheClosingDelimiterWithoutAFile) {
    EXPECT_EQ(Text({{L"uuid", L"7"}}),
              "--BOUND\r\nContent-Disposition: form-data; name=\"uuid\"\r\n\r\n7\r\n<FILE>\r\n--BOUND--\r\n");
}

TEST(MultipartText, IsALineEndAndTheClosingDelimiterWithoutAnything) {
    EXPECT_EQ(Text({}), "<FILE>\r\n--BOUND--\r\n");
}

TEST(MultipartText, OrdersFieldsByTheCodeUnitsOfTheirNames) {
    ParameterMap Parameters;
    Parameters[L"project"] = L"1";
    Parameters[L"uuid"] = L"2";
    Parameters[L"ProcessName"] = L"3";
    EXPECT_EQ(Text(Parameters),
              "--BOUND\r\nContent-Disposition: form-data; name=\"ProcessName\"\r\n\r\n3\r\n"
              "--BOUND\r\nContent-Disposition: form-data; name=\"project\"\r\n\r\n1\r\n"
              "--BOUND\r\nContent-Disposition: form-data; name=\"uuid\"\r\n\r\n2\r\n"
              "<FILE>\r\n--BOUND--\r\n");
}

TEST(MultipartText, SendsEmptyValuesAsEmptyParts) {
    EXPECT_EQ(Text({{L"remark", L""}}),
              "--BOUND\r\nContent-Disposition: form-data; name=\"remark\"\r\n\r\n\r\n<FILE>\r\n--BOUND--\r\n");
}

TEST(MultipartText, TakesValuesAsTheyAre) {
    EXPECT_EQ(Text({{L"a", L"\"x\"\r\n--BOUND--\r\n%s"}}),
              "--BOUND\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\n\"x\"\r\n--BOUND--\r\n%s\r\n"
              "<FILE>\r\n--BOUND--\r\n");
}

TEST(MultipartText, IsUtf8) {
    EXPECT_EQ(Text({{L"a", L"\u5D29\u6E83"}}, {L"C:\\\u00E9.zip", L"File"}),
              "--BOUND\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\n\xE5\xB4\xA9\xE6\xBA\x83\r\n"
              "--BOUND\r\nContent-Disposition: form-data; name=\"File\"; filename=\"C:\\\xC3\xA9.zip\"\r\n"
              "Content-Type: application/octet-stream\r\n\r\n<FILE>\r\n--BOUND--\r\n");
}

TEST(MultipartText, NamesTheFileByItsWholePath) {
    EXPECT_EQ(Text({}, {L"..\\logs\\a b.zip", L"File"}),
              "--BOUND\r\nContent-Disposition: form-data; name=\"File\"; filename=\"..\\logs\\a b.zip\"\r\n"
              "Content-Type: application/octet-stream\r\n\r\n<FILE>\r\n--BOUND--\r\n");
}

TEST(MultipartText, NeedsABoundary) {
    MultipartText Result;
    EXPECT_FALSE(FormMultipartText(L"", {{L"a", L"1"}}, {}, Result));
}

TEST(MultipartBody, HoldsTheFilesBytesUnchanged) {
    const TempFolder Folder;
    const std::string strFile = Folder.Write("all bytes.bin", AllBytes() + "\r\n\r\n\x1A\n");
    EXPECT_EQ(BuiltBytes({{L"key", L"k"}}, {Wide(strFile), L"File"}),
              "--BOUND\r\nContent-Disposition: form-data; name=\"key\"\r\n\r\nk\r\n"
              "--BOUND\r\nContent-Disposition: form-data; name=\"File\"; filename=\"" +
                  strFile +
                  "\"\r\n"
                  "Content-Type: application/octet-stream\r\n\r\n" +
                  AllBytes() +
                  "\r\n\r\n\x1A\n"
                  "\r\n--BOUND--\r\n");
}

TEST(MultipartBody, FailsOnAnEmptyFile) {
    const TempFolder Folder;
    EXPECT_FALSE(Builds(Folder.Write("empty.bin", "")));
    EXPECT_TRUE(Builds(Folder.Write("one.bin", "1")));
}

TEST(MultipartBody, FailsOnAFileThatIsNotThere) {
    const TempFolder Folder;
    EXPECT_FALSE(Builds(Folder.Path("missing.bin")));
    EXPECT_FALSE(Builds(Folder.Path()));
    EXPECT_FALSE(Builds("NUL"));
    EXPECT_FALSE(Builds("??*"));
}

TEST(MultipartBody, FailsOnAFileThatSomebodyKeepsForHimself) {
    const TempFolder Folder;
    const std::string strFile = Folder.Write("locked.bin", "bytes");
    const FileHandle hLock(CreateFileA(strFile.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(hLock);
    EXPECT_FALSE(Builds(strFile));
}

TEST(MultipartBody, SharesTheFileWithReadersAndWriters) {
    const TempFolder Folder;
    const std::string strFile = Folder.Write("shared.bin", "bytes");
    const FileHandle hWriter(CreateFileA(strFile.c_str(), GENERIC_READ | GENERIC_WRITE,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(hWriter);
    EXPECT_TRUE(Builds(strFile));
}

TEST(MultipartBody, RefusesMoreThanA32BitLengthHolds) {
    const TempFolder Folder;
    const std::string strFile = Folder.Path("big.bin");
    ASSERT_NO_FATAL_FAILURE(MakeSparseFile(strFile, 5LL * 1024 * 1024 * 1024));
    EXPECT_FALSE(Builds(strFile));
    ASSERT_NO_FATAL_FAILURE(MakeSparseFile(strFile, 0x100000000LL));
    EXPECT_FALSE(Builds(strFile));
    // The file alone would fit, but not with the text around it.
    ASSERT_NO_FATAL_FAILURE(MakeSparseFile(strFile, 0xFFFFFFFFLL));
    const AllocationWatch Watch;
    EXPECT_FALSE(Builds(strFile));
    EXPECT_LT(Watch.Bytes(), 65536u);
}

TEST(MultipartBody, TakesOneBlockForTheWholeBody) {
    constexpr std::size_t FILE_SIZE = 8 * 1024 * 1024;
    const TempFolder Folder;
    const std::string strFile = Folder.Path("archive.bin");
    ASSERT_NO_FATAL_FAILURE(MakeSparseFile(strFile, FILE_SIZE));
    const std::wstring strWide = Wide(strFile);
    const AllocationWatch Watch;
    MultipartBody Body;
    ASSERT_TRUE(Body.Build(L"BOUND", {{L"key", L"k"}}, {strWide, L"File"}));
    EXPECT_GT(Watch.Bytes(), FILE_SIZE);
    EXPECT_LT(Watch.Bytes(), FILE_SIZE + 65536);
}

TEST(MultipartBody, ThrowsWhenThereIsNoMemoryForIt) {
    const TempFolder Folder;
    const std::wstring strFile = Wide(Folder.Write("archive.bin", "bytes"));
    const UploadFile File = {strFile, L"File"};
    const AllocationWatch Watch(1, AllocationWatch::RefuseFromThereOn);
    MultipartBody Body;
    EXPECT_THROW(Body.Build(L"---------------------------0000002900004823", {}, File), std::bad_alloc);
}

}  // namespace
}  // namespace crashvane
