// The settings store against the real registry: what is stored, what reads
// back, what is created and what is deleted.
#include "WineRegistry.h"
#include "modRegKeys.h"

#include <gtest/gtest.h>

namespace {

class RegKeysTest : public ::testing::Test {
protected:
    void SetUp() override { TestEnv::ResetProgramKey(); }
    void TearDown() override { TestEnv::ResetProgramKey(); }
};

TEST_F(RegKeysTest, TextsAreStoredAsAnsiStringsWithoutTheirNul)
{
    ASSERT_TRUE(WriteSetting("Colors", "One", "16748574"));
    DWORD type = 0;
    std::string bytes;
    ASSERT_TRUE(TestEnv::RawGet("Colors", "One", type, bytes));
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(bytes.substr(0, 8), "16748574");
    EXPECT_EQ(ReadSetting("Colors", "One"), "16748574");

    const std::string accented = "Caf\xE9 \xC6sir \xFF";
    ASSERT_TRUE(WriteSetting("EMail", "Alias Name", accented));
    EXPECT_EQ(ReadSetting("EMail", "Alias Name"), accented);
    EXPECT_EQ(ReadSetting("email", "ALIAS NAME"), accented);  // names are not case-sensitive

    ASSERT_TRUE(WriteSetting("", "Fader On", "True"));  // the program's key itself
    EXPECT_EQ(ReadSetting(Setting::FaderOn), "True");
}

TEST_F(RegKeysTest, EmptyTextIsStoredAsOneSpace)
{
    ASSERT_TRUE(WriteSetting("EMail", "Alias Name", ""));
    EXPECT_EQ(ReadSetting("EMail", "Alias Name"), " ");
    ASSERT_TRUE(WriteSetting("EMail", "Alias Name", "x"));
    ASSERT_TRUE(WriteSetting("EMail", "Alias Name", std::string()));
    EXPECT_EQ(ReadSetting("EMail", "Alias Name"), " ");
}

TEST_F(RegKeysTest, ReadingStopsAtTheBufferOf1024Characters)
{
    const std::string fits(1023, 'a');
    ASSERT_TRUE(WriteSetting("Multiline", "Long", fits));
    EXPECT_EQ(ReadSetting("Multiline", "Long"), fits);

    for (std::size_t length : {1024u, 1025u, 5000u}) {
        ASSERT_TRUE(WriteSetting("Multiline", "Long", std::string(length, 'b')));
        EXPECT_EQ(ReadSetting("Multiline", "Long"), "") << length;
    }
    // The same rule holds for a value that carries its own NUL.
    TestEnv::RawSet("Multiline", "Long", REG_SZ, std::string(1024, 'c') + '\0');
    EXPECT_EQ(ReadSetting("Multiline", "Long"), "");
}

TEST_F(RegKeysTest, TextIsCutAtItsFirstNul)
{
    ASSERT_TRUE(WriteSetting("Style", "Bold", std::string("Tr\0ue", 5)));
    EXPECT_EQ(ReadSetting("Style", "Bold"), "Tr");
}

TEST_F(RegKeysTest, OtherValueTypesReadAsTheProgramExpects)
{
    TestEnv::RawSet("", "Binary", REG_BINARY, std::string("\x31\x32\x00\x33", 4));
    TestEnv::RawSet("", "Expand", REG_EXPAND_SZ, std::string("%WINDIR%\\x\0", 11));
    TestEnv::RawSet("", "Dword", REG_DWORD, std::string("\x78\x56\x34\x12", 4));
    TestEnv::RawSet("", "Minus", REG_DWORD, std::string("\xFF\xFF\xFF\xFF", 4));
    TestEnv::RawSet("", "Multi", REG_MULTI_SZ, std::string("a\0b\0\0", 5));
    TestEnv::RawSet("", "None", REG_NONE, "text");
    EXPECT_EQ(ReadSetting("", "Binary"), "");
    EXPECT_EQ(ReadSetting("", "Expand"), "%WINDIR%\\x");
    EXPECT_EQ(ReadSetting("", "Dword"), "305419896");
    EXPECT_EQ(ReadSetting("", "Minus"), "-1");
    EXPECT_EQ(ReadSetting("", "Multi"), "");
    EXPECT_EQ(ReadSetting("", "None"), "");
}

TEST_F(RegKeysTest, ReadingCreatesNothing)
{
    EXPECT_EQ(ReadSetting("Schemes\\Cool Fade", "One"), "");
    EXPECT_FALSE(TestEnv::ProgramKeyExists());

    ASSERT_TRUE(WriteSetting("", "Fader On", "True"));
    EXPECT_EQ(ReadSetting("Options", "Use Chat KW"), "");
    EXPECT_EQ(ReadSetting("", "Missing"), "");
    EXPECT_FALSE(TestEnv::SectionExists("Options"));
    std::vector<std::string> keys;
    const auto tree = TestEnv::ProgramTree(&keys);
    EXPECT_EQ(tree.size(), 1u);
    EXPECT_EQ(tree.count("|Fader On"), 1u);
    EXPECT_TRUE(keys.empty());
}

TEST_F(RegKeysTest, WritingCreatesTheSectionWithItsParents)
{
    ASSERT_TRUE(WriteSetting(SchemeSection("Cool Fade"), "One", "1"));
    EXPECT_TRUE(TestEnv::SectionExists("Schemes"));
    EXPECT_TRUE(TestEnv::SectionExists("Schemes\\Cool Fade"));
    EXPECT_EQ(ReadSetting("Schemes\\Cool Fade", "One"), "1");
    EXPECT_EQ(SettingSubkeys("Schemes"), std::vector<std::string>{"Cool Fade"});
}

TEST_F(RegKeysTest, DeletingASchemeKey)
{
    EXPECT_FALSE(DeleteSettingKey("Schemes\\Nothing"));
    EXPECT_FALSE(TestEnv::ProgramKeyExists());

    ASSERT_TRUE(WriteSetting("Schemes\\Ocean", "One", "1"));
    ASSERT_TRUE(WriteSetting("Schemes\\Fire", "One", "2"));
    EXPECT_FALSE(DeleteSettingKey("Schemes\\Nothing"));
    EXPECT_TRUE(DeleteSettingKey("Schemes\\Ocean"));
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Ocean"));
    EXPECT_FALSE(DeleteSettingKey("Schemes\\Ocean"));
    EXPECT_EQ(ReadSetting("Schemes\\Fire", "One"), "2");

    // A key that still has subkeys stays, on every system.
    EXPECT_FALSE(DeleteSettingKey("Schemes"));
    EXPECT_TRUE(TestEnv::SectionExists("Schemes\\Fire"));
    EXPECT_FALSE(DeleteSettingKey(""));
    EXPECT_TRUE(TestEnv::ProgramKeyExists());
}

}  // namespace
