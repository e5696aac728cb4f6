// The e-mail side's decisions without AOL: when the toolbar refuses a
// highlight, the sample line of a stored scheme, a scheme mail's subject and
// body as AOL receives them, and the scheme names that cannot be files.
#include "EMailText.h"
#include "SchemeText.h"

#include <gtest/gtest.h>

#include "MemoryStore.h"
#include "modFade.h"

TEST(EFade, RefusesBlanksAndMoreThanThirtyThousandCharacters)
{
    EXPECT_EQ(CheckHighlight(""), HighlightCheck::NoText);
    EXPECT_EQ(CheckHighlight("     "), HighlightCheck::NoText);
    EXPECT_EQ(CheckHighlight(std::string(40000, ' ')), HighlightCheck::NoText) << "blanks are no text, however many";
    EXPECT_EQ(CheckHighlight("\r\n"), HighlightCheck::Fade) << "only blanks are trimmed";
    EXPECT_EQ(CheckHighlight(" x "), HighlightCheck::Fade);
    EXPECT_EQ(CheckHighlight(std::string(30000, 'x')), HighlightCheck::Fade);
    EXPECT_EQ(CheckHighlight(" " + std::string(29999, 'x') + " "), HighlightCheck::TooLong) << "counted untrimmed";
}

class SampleLine : public ::testing::Test {
protected:
    void SetUp() override { MemoryStore::Clear(); }
    void Store(const std::string& name, const std::string& value)
    {
        MemoryStore::Store().Write("Schemes\\Sea", name, value);
    }
};

TEST_F(SampleLine, FadesInTheStoredColoursAndWrapsInTheStyleTags)
{
    const std::string text = "This is a sample of the Sea fade scheme!";
    Store("Fade Number", "3");
    Store("One", "255");
    Store("Two", "65280");
    Store("Three", "16711680");
    Store("Four", "not a colour");
    Store("Wavy", "True");
    EXPECT_EQ(MakeEMailFade(MemoryStore::Store(), "Sea"), FadeByColor3(255, 65280, 16711680, text, true));

    Store("Bold", "True");
    Store("Italic", "-1");
    Store("ULine", "True");
    Store("Wavy", "maybe");
    EXPECT_EQ(MakeEMailFade(MemoryStore::Store(), "Sea"),
              "<U><I><B>" + FadeByColor3(255, 65280, 16711680, text, false) + "</B></I></U>");

    Store("Fade Number", "1");
    Store("Italic", "False");
    Store("ULine", "0");
    EXPECT_EQ(MakeEMailFade(MemoryStore::Store(), "Sea"), "<B>" + MakeOneSolidFade(text, 255, false) + "</B>");
}

TEST_F(SampleLine, AFadeNumberOutsideOneToSixLeavesOnlyTheTags)
{
    Store("Bold", "True");
    EXPECT_EQ(MakeEMailFade(MemoryStore::Store(), "Sea"), "<B></B>") << "no Fade Number stored";
    for (const char* number : {"0", "7", "70000", "x"}) {
        Store("Fade Number", number);
        EXPECT_EQ(MakeEMailFade(MemoryStore::Store(), "Sea"), "<B></B>") << number;
    }
    EXPECT_EQ(MakeEMailFade(MemoryStore::Store(), "Missing"), "");
}

TEST(SchemeMail, SubjectTakesTheOneSchemeFormOnlyForExactlyOne)
{
    EXPECT_EQ(SchemeMailSubject(1, "Zun Tester"), "A \"Prismo\" Fade Scheme from Zun Tester");
    EXPECT_EQ(SchemeMailSubject(0, "Zun Tester"), "Zip of \"Prismo\" Fade Schemes from Zun Tester");
    EXPECT_EQ(SchemeMailSubject(3, ""), "Zip of \"Prismo\" Fade Schemes from ");
}

namespace {

const std::string kRule = "</FONT><FONT  SIZE=3 PTSIZE=10><U>" + std::string(62, '_') + "</U>\r\n" +
                          std::string(62, '\xAF') + "\r\n";

std::string Head(const std::string& introduction)
{
    return "<HTML><PRE></P><P ALIGN=CENTER></FONT><FONT  SIZE=2 PTSIZE=8>" + introduction +
           "brought to you by <B>Zun Tester </B>using <B>Prismo - <FONT COLOR=#0000ff FONT  SIZE=2 PTSIZE=8>Rev "
           "1.2.3\r\n</FONT><FONT COLOR=#000000 SIZE=2></B>Get your copy now at the <A "
           "HREF=\"http://www.zunsoftware.com\">Zun Software</A> website!\r\n</FONT><FONT COLOR=#000000 SIZE=2>" +
           kRule;
}

std::string Tail()
{
    return "<FONT COLOR=#000000>" + kRule +
           "</P><P ALIGN=LEFT></FONT><FONT COLOR=#000000 SIZE=3 PTSIZE=9><B><U>Directions for installing:</FONT><FONT  "
           "SIZE=2 PTSIZE=8></B></U>\r\nYou must have Zun Software's <A "
           "HREF=\"http://www.zunsoftware.com/tunebox/index.html\">Tunebox 32 - 9.x</A> or <A "
           "HREF=\"http://www.zunsoftware.com/prismo/index.html\">Prismo</A> program installed on your "
           "computer.\r\n\r\n<I>Detailed installation instructions are located within your Tunebox 32 or Prismo Help "
           "file.</I>\r\n\r\n</B></I></U><FONT COLOR=#000000>\r\n\r\n</PRE></HTML>";
}

std::string Summary(const std::string& count)
{
    return "<Font Color=#000000 Size=2><B>Number of Fade Schemes in this zip file<Font Color=#0000ff Size=3><I>\r" +
           count + "\r</B></I><Font Color=#000000 Size=3>" +
           "\x98\xA8\xA8\xA8\xA8\x98''\xB0\xBA\xBA\xB0''\x98\x98''\xB0\xBA\xBA\xB0''\x98\x98''\xB0\xBA\xBA\xB0''"
           "\x98\x98\xA8\xA8\xA8\xA8\x98\r\n\r\n<B>Fade Schemes included in this zip file</B>\r\n\r\n";
}

}  // namespace

TEST(SchemeMail, OneSchemeBodyWithAndWithoutItsSample)
{
    const std::vector<MailedScheme> one{{"Cool Fade", "<FONT COLOR=\"#0000FF\">T</FONT>"}};
    EXPECT_EQ(SchemeMailBody(one, "Zun Tester", "1.2.3", true),
              Head("This Fade Scheme was ") + "<B><U><FONT COLOR=#000000>Cool Fade</B></U>\r\n" +
                  "<FONT COLOR=\"#0000FF\">T</FONT>\r\n\r\n" + Tail());
    EXPECT_EQ(SchemeMailBody(one, "Zun Tester", "1.2.3", false),
              Head("This Fade Scheme was ") + "<FONT COLOR=#000000>Cool Fade" + Tail());
}

TEST(SchemeMail, SeveralOrNoSchemesCarryTheCountAndEveryNameInOrder)
{
    const std::vector<MailedScheme> three{{"B", "sb"}, {"A", "sa"}, {"C", ""}};
    EXPECT_EQ(SchemeMailBody(three, "Zun Tester", "1.2.3", false),
              Head("These Fade Schemes were ") + Summary("3") +
                  "<FONT COLOR=#000000>B, <FONT COLOR=#000000>A, <FONT COLOR=#000000>C, " + Tail());
    EXPECT_EQ(SchemeMailBody(three, "Zun Tester", "1.2.3", true),
              Head("These Fade Schemes were ") + Summary("3") +
                  "<B><U><FONT COLOR=#000000>B</B></U>\r\nsb\r\n\r\n<B><U><FONT COLOR=#000000>A</B></U>\r\nsa\r\n\r\n"
                  "<B><U><FONT COLOR=#000000>C</B></U>\r\n\r\n\r\n" +
                  Tail());
    EXPECT_EQ(SchemeMailBody({}, "Zun Tester", "1.2.3", true), Head("These Fade Schemes were ") + Summary("0") + Tail());
}

TEST(SchemeMail, NamesThatCannotBeFilesAreFoundAndNamedInOneMessage)
{
    const std::string folder = "C:\\Program Files\\Prismo\\outgoing\\";
    const std::vector<std::string> fine{"Cool Fade", "a.b", "con fade", "COM0", "LPT10", "Comet", ".hidden", "~x~"};
    EXPECT_TRUE(UnfitFileNames(fine, folder).empty());
    const std::vector<std::string> bad{"a\\b", "a/b", "a:b", "a*b", "a?b", "a\"b", "a<b", "a>b", "a|b",
                                       "tab\there", "dot.", "blank ", "CON", "con.txt", "Nul", "aux .x",
                                       "COM1", "lpt9.fde", "PRN"};
    EXPECT_EQ(UnfitFileNames(bad, folder), bad);

    const std::string longest(259 - folder.size() - 4, 'n');
    EXPECT_TRUE(UnfitFileNames({longest}, folder).empty()) << "a path of 259 characters still fits";
    EXPECT_EQ(UnfitFileNames({"ok", longest + "n", "x"}, folder), std::vector<std::string>{longest + "n"});

    const std::string message = UnfitNamesMessage({"a:b", "tab\there"});
    EXPECT_NE(message.find("\"a:b\""), std::string::npos);
    EXPECT_NE(message.find("\"tab^Ihere\""), std::string::npos) << "a control character is shown, not sent raw";
}
