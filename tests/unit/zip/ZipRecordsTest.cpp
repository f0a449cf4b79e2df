#include "zip/ZipRecords.h"

#include <gmock/gmock.h>

#include "zip/ArchiveWalk.h"

namespace crashvane {
namespace {

using test::FromHex;

std::string Text(const RecordBytes& Record) {
    return std::string(reinterpret_cast<const char*>(Record.Bytes.data()), Record.uSize);
}

// Every field another value, so that no two can be mixed up.
EntryRecord Sample() {
    EntryRecord Entry;
    Entry.strName = "a/b.txt";
    Entry.uNameLength = 7;
    Entry.uFlags = 0x0008;
    Entry.uMethod = 8;
    Entry.uTimeAndDate = 0x585D6450;
    Entry.uCrc = 0x11223344;
    Entry.uCompressedSize = 0x55667788;
    Entry.uUncompressedSize = 0x99AABBCC;
    Entry.uModified = 0x01020304;
    Entry.uAccessed = 0x05060708;
    Entry.uCreated = 0x090A0B0C;
    Entry.uInternalAttributes = 1;
    Entry.uExternalAttributes = 0x81800020;
    Entry.uHeaderOffset = 0xDDEEFF00;
    return Entry;
}

TEST(ZipRecords, LayOutALocalHeader) {
    EXPECT_EQ(Text(LocalHeader(Sample())),
              FromHex("50 4B 03 04  14 00  08 00  08 00  50 64 5D 58  44 33 22 11  88 77 66 55  CC BB AA 99"
                      "07 00  11 00  61 2F 62 2E 74 78 74"
                      "55 54  0D 00  07  04 03 02 01  08 07 06 05  0C 0B 0A 09"));
}

TEST(ZipRecords, LayOutACentralHeader) {
    EXPECT_EQ(Text(CentralHeader(Sample())),
              FromHex("50 4B 01 02  17 0B  14 00  08 00  08 00  50 64 5D 58  44 33 22 11  88 77 66 55  CC BB AA 99"
                      "07 00  09 00  00 00  00 00  01 00  20 00 80 81  00 FF EE DD  61 2F 62 2E 74 78 74"
                      "55 54  05 00  07  04 03 02 01"));
}

TEST(ZipRecords, LayOutADataDescriptor) {
    EXPECT_EQ(Text(DataDescriptor(Sample())), FromHex("50 4B 07 08  44 33 22 11  88 77 66 55  CC BB AA 99"));
}

TEST(ZipRecords, LayOutTheEnd) {
    DirectoryEnd End;
    End.uEntries = 0x0102;
    End.uSize = 0x03040506;
    End.uOffset = 0x0708090A;
    EXPECT_EQ(Text(EndRecord(End)),
              FromHex("50 4B 05 06  00 00  00 00  02 01  02 01  06 05 04 03  0A 09 08 07  00 00"));
}

TEST(ZipRecords, HoldTheLongestName) {
    EntryRecord Entry = Sample();
    Entry.strName.assign(259, 'n');
    Entry.uNameLength = 259;
    EXPECT_EQ(LocalHeader(Entry).uSize, 30U + 259 + 17);
    EXPECT_EQ(CentralHeader(Entry).uSize, 46U + 259 + 9);
    EXPECT_EQ(Text(CentralHeader(Entry)).substr(46, 259), std::string(259, 'n'));
}

}  // namespace
}  // namespace crashvane
