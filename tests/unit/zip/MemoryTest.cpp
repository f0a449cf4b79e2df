// Memory: how often the compressor asks for it, and what happens when there is none.
#include <gmock/gmock.h>

#include <cstdlib>
#include <new>

#include "support/TempFolder.h"
#include "zip/ArchiveWalk.h"
#include "zip/ArchiveWriter.h"
#include "zip/FakeOutput.h"
#include "zip/SourceFiles.h"
#include "zip/ZipWriter.h"

namespace {

// The allocation that fails, counted down; negative: none does.
long nAllocationsLeft = -1;

void* Allocate(std::size_t uSize) {
    if (nAllocationsLeft == 0) {
        throw std::bad_alloc();
    }
    nAllocationsLeft -= nAllocationsLeft > 0 ? 1 : 0;
    void* pMemory = std::malloc(uSize > 0 ? uSize : 1);
    if (pMemory == nullptr) {
        throw std::bad_alloc();
    }
    return pMemory;
}

}  // namespace

void* operator new(std::size_t uSize) {
    return Allocate(uSize);
}
void* operator new[](std::size_t uSize) {
    return Allocate(uSize);
}
void operator delete(void* pMemory) noexcept {
    std::free(pMemory);
}
void operator delete[](void* pMemory) noexcept {
    std::free(pMemory);
}
void operator delete(void* pMemory, std::size_t) noexcept {
    std::free(pMemory);
}
void operator delete[](void* pMemory, std::size_t) noexcept {
    std::free(pMemory);
}

namespace crashvane {
namespace {

using test::FakeDisk;
using test::FakeOutput;
using test::TempFolder;
using test::Walk;
using test::WalkArchive;

int nEngineBlocks = 0;
int nEngineAllocations = 0;
int nEngineAllocationsAllowed = 1000;

void* EngineAllocate(void*, unsigned uItems, unsigned uSize) {
    if (nEngineAllocations >= nEngineAllocationsAllowed) {
        return nullptr;
    }
    ++nEngineAllocations;
    ++nEngineBlocks;
    return std::calloc(uItems, uSize);
}

void EngineFree(void*, void* pBlock) {
    --nEngineBlocks;
    std::free(pBlock);
}

class EngineMemory : public testing::Test {
  protected:
    void SetUp() override {
        nEngineBlocks = nEngineAllocations = 0;
        nEngineAllocationsAllowed = 1000;
    }
    TempFolder m_Folder;
    FakeDisk m_Disk;
};

TEST_F(EngineMemory, IsAskedForOnceAWriterAndGivenBack) {
    {
        ArchiveWriter Writer(std::make_unique<FakeOutput>(m_Disk), ArchiveLimits(), EngineAllocate, EngineFree);
        const std::string strSource = m_Folder.Write("a.txt", test::Noise(100000));
        EXPECT_EQ(Writer.Add(strSource, "a.txt"), ZipOk);
        const int nAfterOne = nEngineAllocations;
        EXPECT_GT(nAfterOne, 0);
        EXPECT_EQ(Writer.Add(strSource, "b.txt"), ZipOk);
        EXPECT_EQ(Writer.Add(strSource, "c.txt"), ZipOk);
        EXPECT_EQ(nEngineAllocations, nAfterOne);
        EXPECT_EQ(Writer.Finish(), ZipOk);
    }
    EXPECT_EQ(nEngineBlocks, 0);
    EXPECT_EQ(WalkArchive(m_Disk.strBytes).strComplaint, "");
}

TEST_F(EngineMemory, ThatIsMissingIsAnErrorForGood) {
    {
        ArchiveWriter Writer(std::make_unique<FakeOutput>(m_Disk), ArchiveLimits(), EngineAllocate, EngineFree);
        EXPECT_EQ(Writer.Add(m_Folder.Write("a.zip", "stored"), "a.zip"), ZipOk);
        nEngineAllocationsAllowed = 2;
        EXPECT_EQ(Writer.Add(m_Folder.Write("b.txt", "deflated"), "b.txt"), ZipWriteError);
        EXPECT_EQ(Writer.Add(m_Folder.Write("c.zip", "stored"), "c.zip"), ZipFailedBefore);
        EXPECT_EQ(Writer.Finish(), ZipOk);
    }
    EXPECT_EQ(nEngineBlocks, 0);
    const Walk Found = WalkArchive(m_Disk.strBytes);
    EXPECT_EQ(Found.strComplaint, "");
    EXPECT_EQ(Found.Entries.size(), 1U);
}

// Each allocation fails in turn, and every later one with it, until the work is done without reaching that many.
TEST(Memory, ThatRunsOutLeavesNoArchiveBehind) {
    TempFolder Folder;
    const std::string strPath = Folder.Path("archive.zip");
    ZipArchive* pArchive = nullptr;
    long nEnough = 0;
    while (pArchive == nullptr && nEnough < 100) {
        nAllocationsLeft = nEnough++;
        pArchive = ZipWriter::CreateArchive(strPath);
        nAllocationsLeft = -1;
        if (pArchive == nullptr) {
            EXPECT_EQ(ZipWriter::LastResult(), ZipNoFile);
            EXPECT_FALSE(std::filesystem::exists(strPath));
        }
    }
    EXPECT_GT(nEnough, 2);
    ASSERT_NE(pArchive, nullptr);
    EXPECT_EQ(ZipWriter::Close(pArchive), ZipOk);
}

TEST(Memory, ThatRunsOutInAnAddLeavesTheArchiveAsItWas) {
    TempFolder Folder;
    const std::string strPath = Folder.Path("archive.zip");
    const std::string strSource = Folder.Write("a file whose name does not fit a short text.txt", "content");
    ZipArchive* pArchive = ZipWriter::CreateArchive(strPath);
    ASSERT_NE(pArchive, nullptr);
    long nEnough = 0;
    int nAdded = 0;
    while (nAdded == 0 && nEnough < 100) {
        nAllocationsLeft = nEnough++;
        nAdded = ZipWriter::AddFile(pArchive, strSource);
        nAllocationsLeft = -1;
        EXPECT_EQ(ZipWriter::LastResult(), nAdded == 1 ? ZipOk : ZipNoFile);
    }
    EXPECT_GT(nEnough, 2);
    EXPECT_EQ(nAdded, 1);
    nAllocationsLeft = 0;
    const unsigned uClosed = ZipWriter::Close(pArchive);
    nAllocationsLeft = -1;
    EXPECT_EQ(uClosed, unsigned{ZipOk});
    const Walk Found = WalkArchive(TempFolder::Read(strPath));
    EXPECT_EQ(Found.strComplaint, "");
    EXPECT_EQ(Found.uGaps, 0U);
    EXPECT_EQ(Found.Entries.size(), 1U);
}

}  // namespace
}  // namespace crashvane
