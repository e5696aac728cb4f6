// The whole-file operations on real files under Wine, and the run-time error
// numbers their failures carry.
#include "ErrorTrap.h"
#include "SchemeFiles.h"
#include "WineRegistry.h"
#include "modFileOp.h"

#include <gtest/gtest.h>

namespace {

class FileOpTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = ProgramFolder() + "\\fileop-test";
        TestEnv::CleanFolder(folder);
    }
    void TearDown() override { TestEnv::RemoveFolder(folder); }

    int ErrorOf(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const RuntimeError& e) {
            return e.number;
        }
        return 0;
    }

    std::string folder;
};

TEST_F(FileOpTest, ExistenceOfFilesFoldersAndPatterns)
{
    TestEnv::PutFile(folder + "\\a.fde", "x");
    EXPECT_TRUE(FileExists(folder + "\\a.fde"));
    EXPECT_TRUE(FileExists(folder));                 // a folder is found too
    EXPECT_TRUE(FileExists(folder + "\\*.fde"));
    EXPECT_FALSE(FileExists(folder + "\\*.txt"));
    EXPECT_FALSE(FileExists(folder + "\\b.fde"));

    EXPECT_FALSE(DirExists(""));
    EXPECT_TRUE(DirExists(folder));
    EXPECT_TRUE(DirExists(folder + "\\"));
    EXPECT_FALSE(DirExists(folder + "\\missing"));
    EXPECT_FALSE(DirExists(folder + "\\missing\\"));
    EXPECT_FALSE(DirExists("Q:\\no\\such\\drive"));
}

TEST_F(FileOpTest, FilesAreReadAndWrittenByteForByte)
{
    const std::string path = folder + "\\bytes.bin";
    std::string bytes;
    for (int i = 0; i < 3 * 256; ++i) bytes += static_cast<char>(i % 256);
    bytes += "no line end";
    ASSERT_TRUE(WriteFile(path, bytes));
    EXPECT_EQ(ReadFile(path), bytes);

    // Writing again truncates.
    ASSERT_TRUE(WriteFile(path, "short"));
    EXPECT_EQ(ReadFile(path), "short");
    EXPECT_EQ(ReadFile(path, 3), "sho");
    EXPECT_EQ(ReadFile(path, 9), "short");
    ASSERT_TRUE(WriteFile(path, ""));
    EXPECT_EQ(ReadFile(path), "");
}

TEST_F(FileOpTest, FailuresCarryTheirRunTimeErrorNumbers)
{
    EXPECT_EQ(ErrorOf([&] { ReadFile(folder + "\\missing.txt"); }), Err::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { ReadFile(folder + "\\missing\\x.txt"); }), Err::PathNotFound);
    EXPECT_EQ(ErrorOf([&] { Kill(folder + "\\missing.txt"); }), Err::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { FileCopy(folder + "\\missing.txt", folder + "\\b.txt"); }), Err::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { MkDir(folder); }), Err::FileExists);
    EXPECT_FALSE(WriteFile(folder + "\\missing\\x.txt", "x"));  // ignored, not raised

    // A file another program holds open without sharing.
    const std::string locked = folder + "\\locked.txt";
    TestEnv::PutFile(locked, "x");
    HANDLE held = CreateFileA(locked.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_EQ(ErrorOf([&] { ReadFile(locked); }), Err::PermissionDenied);
    CloseHandle(held);
    EXPECT_EQ(ReadFile(locked), "x");
}

TEST_F(FileOpTest, ListingLeavesOutFoldersAndHiddenFiles)
{
    TestEnv::PutFile(folder + "\\one.fde", "");
    TestEnv::PutFile(folder + "\\two.FDE", "");
    TestEnv::PutFile(folder + "\\hidden.fde", "");
    SetFileAttributesA((folder + "\\hidden.fde").c_str(), FILE_ATTRIBUTE_HIDDEN);
    CreateDirectoryA((folder + "\\folder.fde").c_str(), nullptr);
    TestEnv::PutFile(folder + "\\other.txt", "");
    std::vector<std::string> names = FileNames(folder + "\\*.fde");
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"one.fde", "two.FDE"}));
    EXPECT_TRUE(FileNames(folder + "\\missing\\*.fde").empty());
}

}  // namespace
