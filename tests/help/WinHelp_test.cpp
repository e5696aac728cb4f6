// Wine's WinHelp (winhlp32) opening the help files we build: the main
// window's caption, every topic reached by its context name showing the text
// our reader finds in the file, the Index listing every keyword and leading
// to its topic, and a topic longer than one block of the file.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "HelpViewer.h"

namespace {

std::string ReadWhole(const char* path)
{
    std::string text;
    if (FILE* f = std::fopen(path, "rb")) {
        char buffer[4096];
        for (size_t n; (n = std::fread(buffer, 1, sizeof buffer, f)) > 0;) text.append(buffer, n);
        std::fclose(f);
    }
    return text;
}

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> parts(1);
    for (char c : text) {
        if (c == separator) parts.emplace_back();
        else parts.back() += c;
    }
    return parts;
}

// What the reader of our tests found in a help file: each topic's text and,
// last, the keywords in the file's order.
struct FileTexts {
    std::vector<std::string> topics;
    std::vector<std::string> keywords;

    explicit FileTexts(const char* path)
    {
        topics = Split(ReadWhole(path), '\f');
        keywords = Split(topics.back(), '\n');
        topics.pop_back();
    }
    // The text of the topic with this title (its first line).
    std::string TopicTitled(const std::string& title) const
    {
        for (const std::string& t : topics)
            if (t.compare(0, title.size() + 1, title + "\n") == 0) return t;
        return "(no topic titled " + title + ")";
    }
};

// The topics as the help source names them: context, title, keywords.
struct SourceTopic {
    std::string context, title;
    std::vector<std::string> keywords;
};

std::vector<SourceTopic> ReadSource(const char* path)
{
    std::vector<SourceTopic> topics;
    for (std::string line : Split(ReadWhole(path), '\n')) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.compare(0, 7, ".topic ") == 0) {
            const size_t space = line.find(' ', 7);
            topics.push_back({line.substr(7, space - 7), line.substr(space + 1), {}});
        } else if (line.compare(0, 9, ".keyword ") == 0 && !topics.empty()) {
            topics.back().keywords.push_back(line.substr(9));
        }
    }
    return topics;
}

TEST(Winhlp32, EveryTopicOpensByItsContextUnderTheProgramsCaption)
{
    const FileTexts texts(PRISMO_HELP_TEXTS);
    const std::vector<SourceTopic> source = ReadSource(PRISMO_HELP_SOURCE);
    ASSERT_EQ(source.size(), texts.topics.size());
    for (const SourceTopic& topic : source) {
        SCOPED_TRACE(topic.context);
        HelpViewer viewer(PRISMO_HELP_FILE, topic.context);
        ASSERT_TRUE(viewer.Main());
        EXPECT_EQ(viewer.WaitShown(texts.TopicTitled(topic.title)), texts.TopicTitled(topic.title));
        EXPECT_EQ(WindowText(viewer.Main()), "Prismo!");
    }
}

TEST(Winhlp32, IndexListsEveryKeywordAndLeadsToTheWizard)
{
    const FileTexts texts(PRISMO_HELP_TEXTS);
    const std::vector<SourceTopic> source = ReadSource(PRISMO_HELP_SOURCE);
    HelpViewer viewer(PRISMO_HELP_FILE, source.front().context);
    ASSERT_TRUE(viewer.Main());
    viewer.WaitShown(texts.TopicTitled(source.front().title));

    HWND sheet = nullptr;
    HWND list = viewer.OpenIndex(sheet);
    ASSERT_TRUE(list);

    std::vector<std::string> listed;
    const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) listed.push_back(ListItem(list, i));
    EXPECT_EQ(listed, texts.keywords);

    std::string wizardTitle;
    for (const SourceTopic& topic : source)
        for (const std::string& keyword : topic.keywords)
            if (keyword == "Import Settings") wizardTitle = topic.title;
    const LRESULT at = SendMessageA(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>("Import Settings"));
    ASSERT_NE(at, LB_ERR);
    SendMessageA(list, LB_SETCURSEL, static_cast<WPARAM>(at), 0);
    PostMessageA(GetDlgItem(sheet, IDOK), BM_CLICK, 0, 0);
    const std::string wizard = texts.TopicTitled(wizardTitle);
    EXPECT_EQ(viewer.WaitShown(wizard), wizard);
}

TEST(Winhlp32, TopicLongerThanABlockOpensWhole)
{
    const FileTexts texts(LONG_HELP_TEXTS);
    HelpViewer viewer(LONG_HELP_FILE, "long_topic");
    ASSERT_TRUE(viewer.Main());
    const std::string expected = texts.TopicTitled("A topic longer than a block");
    ASSERT_GT(expected.size(), 4096u);
    EXPECT_EQ(viewer.WaitShown(expected), expected);
}

}  // namespace
