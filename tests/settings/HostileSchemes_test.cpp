// The automatic import against a folder of malformed and hostile scheme
// files: nothing but the eleven scheme values may ever be written, and only
// under "Schemes\" + name; the user's settings stay as they were, and loading
// options and fading still work afterwards.
#include "AOLState.h"
#include "Catalog.h"
#include "ErrorTrap.h"
#include "OptionsLoad.h"
#include "SchemeFiles.h"
#include "WineRegistry.h"
#include "modFade.h"
#include "modFileOp.h"
#include "modRegKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <set>

namespace {

std::string Lower(std::string s)
{
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

// Deterministic noise, so a failure can be reproduced.
std::string Noise(std::size_t size, std::uint32_t seed)
{
    std::string bytes(size, '\0');
    for (char& b : bytes) {
        seed = seed * 1664525u + 1013904223u;
        b = static_cast<char>(seed >> 24);
    }
    return bytes;
}

// name (without ".fde") -> contents
std::vector<std::pair<std::string, std::string>> HostileFiles()
{
    std::vector<std::pair<std::string, std::string>> files;
    files.push_back({"Binary", Noise(64 * 1024, 1)});
    std::string keyed;  // noise around every key the parser knows, and some it must not
    for (const char* key : {"One=", "fadenumber=", "Fade Number=", "Default=", "SolidFade=", "Seven=", "=",
                            "\0One=", "ULINE="}) {
        keyed += std::string(key) + Noise(300, static_cast<std::uint32_t>(keyed.size())) + "\r\n";
    }
    files.push_back({"Keyed Noise", keyed});
    files.push_back({"Huge Lines", "One=" + std::string(100 * 1024, '7') + "\r\n" + std::string(100 * 1024, '=') +
                                       "\r\nTwo=" + std::string(100 * 1024, '\xFF') + "\r\nFadeNumber=3\r\n"});
    std::string many;
    const char* lines[] = {"One=1", "two=2", "[Colors]", "Bogus=1", "Fade Number=9", "Wavy=True", "", "x=y=z",
                           "Default=Evil", "SIX=-1"};
    for (int i = 0; i < 4000; ++i) many += std::string(lines[i % 10]) + (i % 3 ? "\r\n" : i % 2 ? "\n" : "\r");
    files.push_back({"Many Lines", many});
    files.push_back({"Odd ~!@#$%^&()_+{}[];',=", "One=42\r\n"});
    files.push_back({"Caf\xE9 \xC6 \xFF", "Bold=True\r\n"});
    files.push_back({std::string(180, 'L'), "Italic=True\r\n"});
    files.push_back({"dots..", "Two=3\r\n"});
    files.push_back({"Empty", ""});
    files.push_back({"No Equals", "[Options]\r\nFadeNumber 5\r\nOne\r\n"});
    files.push_back({"Nul Inside", std::string("One=12\0 34\r\nTw\0o=5\r\n", 20)});
    files.push_back({"Bom", "\xEF\xBB\xBFOne=7\r\nTwo=8\r\n"});
    // A file called just ".fde" names no scheme (Wine lists it as hidden).
    files.push_back({"", "One=666\r\nFadeNumber=6\r\n"});
    return files;
}

class HostileSchemesTest : public ::testing::Test, public ErrorReporter {
protected:
    void SetUp() override
    {
        TestEnv::ResetProgramKey();
        work = ProgramFolder() + "\\hostile-test";
        TestEnv::CleanFolder(work);
        TestEnv::CleanFolder(work + "\\download");
        TestEnv::CleanFolder(ProgramFolder() + "\\incoming");
        AOLPath = work;
        SetErrorReporter(this);
    }
    int Report(const ErrorReport& r) override
    {
        reports.push_back(r);
        return AnswerIgnore;
    }
    void Abort() override {}
    void TearDown() override
    {
        SetErrorReporter(nullptr);
        AOLPath.clear();
        TestEnv::RemoveFolder(work);
        TestEnv::RemoveFolder(ProgramFolder() + "\\incoming");
        TestEnv::ResetProgramKey();
    }

    std::string work;
    std::vector<ErrorReport> reports;
};

TEST_F(HostileSchemesTest, OnlySchemeValuesAreWrittenAndTheProgramStillWorks)
{
    // The user's own state before the import.
    TestEnv::InstallShippedSchemes();
    WriteSetting(Setting::DefaultScheme, "Ocean");
    WriteSetting(Setting::FadeNumber, "3");
    WriteSetting(Setting::Colors[0], "255");
    WriteSetting(Setting::Colors[1], "65280");
    WriteSetting(Setting::Colors[2], "16711680");
    WriteSetting(Setting::Bold, "True");
    const auto before = TestEnv::ProgramTree();

    for (const auto& [name, contents] : HostileFiles()) TestEnv::PutFile(work + "\\download\\" + name + ".fde", contents);
    CreateDirectoryA((work + "\\download\\Folder.fde").c_str(), nullptr);
    UpdateFadeSchemes(IncomingFolder());

    // Every key is the program's, "Schemes", or one scheme directly below it.
    std::vector<std::string> keys;
    const auto after = TestEnv::ProgramTree(&keys);
    for (const std::string& key : keys) {
        const bool known = key == "Schemes" || key == "Colors" || key == "Style";
        const bool scheme = key.rfind("Schemes\\", 0) == 0 && key.find('\\', 8) == std::string::npos;
        EXPECT_TRUE(known || scheme) << key;
    }
    // Outside the schemes nothing changed; inside, only the eleven names.
    std::set<std::string> allowed;
    for (const char* name : kSchemeValueNames) allowed.insert(Lower(name));
    for (const auto& [key, value] : after) {
        const std::string section = key.substr(0, key.find('|'));
        const std::string name = key.substr(key.find('|') + 1);
        if (section.rfind("Schemes\\", 0) == 0) {
            EXPECT_EQ(allowed.count(Lower(name)), 1u) << section << " has " << name;
            EXPECT_EQ(value.first, static_cast<DWORD>(REG_SZ)) << key;
        } else {
            EXPECT_EQ(before.count(key), 1u) << "new value " << key;
        }
    }
    for (const auto& [key, value] : before) {
        if (key.rfind("Schemes\\", 0) == 0) continue;
        EXPECT_EQ(after.at(key), value) << key;
    }
    EXPECT_EQ(ReadSetting(SchemeSection("Cool Fade"), "One"), "16748574");

    // Some files were sensible enough to leave a trace.
    EXPECT_EQ(ReadSetting(SchemeSection("Many Lines"), "SIX"), "-1");
    EXPECT_EQ(ReadSetting(SchemeSection("Many Lines"), "Fade Number"), "");
    EXPECT_EQ(ReadSetting(SchemeSection("Huge Lines"), "Fade Number"), "3");
    EXPECT_EQ(ReadSetting(SchemeSection("Huge Lines"), "One"), "");  // too long to read back
    EXPECT_EQ(ReadSetting(SchemeSection("Nul Inside"), "One"), "12");
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\No Equals"));
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Empty"));

    // Every file was consumed; the folder named like a scheme was left alone.
    EXPECT_TRUE(FileNames(work + "\\download\\*.fde").empty());
    EXPECT_TRUE(FileNames(IncomingFolder() + "*.fde").empty());
    EXPECT_TRUE(DirExists(work + "\\download\\Folder.fde"));
    EXPECT_TRUE(reports.empty());

    // Loading options and fading go on as before.
    Options = OptionsRecord{};
    LoadOptions();
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(Options.DefaultScheme, "Ocean");
    EXPECT_EQ(Options.FadeNumber, 3);
    EXPECT_EQ(Options.Colors[2], 16711680);
    EXPECT_TRUE(Options.Bold);
    WavePhase = 0;
    std::string text = "Hello";
    const std::string faded = FadeEngine(text);

    // Red, green, blue over "Hello" (2 + 3 characters), bold.
    EXPECT_EQ(faded, "<B><FONT COLOR=#808000>H<FONT COLOR=#00FF00>e<FONT COLOR=#00AA55>l"
                     "<FONT COLOR=#0055AA>l<FONT COLOR=#0000FF>o</B>");
}

}  // namespace
