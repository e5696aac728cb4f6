// The chat fader beside an AOL whose chat room is maximised: the room's
// system menu and buttons stand in AOL's menu bar, and Prismo still hooks and
// fades the room, finds the edition and puts "Prism&o" among AOL's menus.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "ChatLiveFixture.h"

using namespace ChatLive;

namespace {

// The bar of `aolsimctl menu`: its lines that are not indented, captions only.
std::vector<std::string> Bar(const std::string& menu)
{
    std::vector<std::string> bar;
    for (const std::string& line : Lines(menu))
        if (!line.empty() && line[0] != '\t') bar.push_back(line.substr(0, line.find('\t')));
    return bar;
}

const std::vector<std::string> kButtons{"(minimize)", "(restore)", "(close)"};

class ChatMaximised : public ChatLiveTest {
protected:
    std::vector<std::string> BarNow() { return Bar(sim_.Ctl("menu")); }
};

// The UK edition keeps one window between the chat input and its send icon:
// the send icon is hooked only when the edition was read right.
TEST_F(ChatMaximised, RoomIsHookedAndFadedAndPrismoSitsAfterAOLsLastMenu)
{
    ASSERT_TRUE(sim_.Start("40", "--edition uk --signed-on \"Zun Tester\" --room \"Town Square\""));
    ASSERT_EQ(sim_.Ctl("maximize room"), "");
    ASSERT_TRUE(prismo_.Start("\"" + Prismo() + "\""));
    const std::vector<std::string> expected{"(system menu)", "&File", "&Edit", "&Window", "&Sign Off", "&Help",
                                            "Prism&o", "(minimize)", "(restore)", "(close)"};
    EXPECT_TRUE(PumpUntil([&] { return BarNow().size() == expected.size(); }, 60000));
    EXPECT_EQ(BarNow(), expected) << "after AOL's last menu, never among the room's buttons";
    ASSERT_TRUE(Hooked());
    EXPECT_EQ(sim_.Ctl("subclassed"), "frame\tsubclassed\ninput\tsubclassed\nsend\tsubclassed\n");

    const std::string faded = Faded("maximised and faded");
    for (bool byIcon : {false, true}) EXPECT_EQ(Send("maximised and faded", byIcon), faded) << byIcon;

    // Restored and maximised again, the room takes its pictures with it.
    ASSERT_EQ(sim_.Ctl("restore"), "");
    EXPECT_EQ(BarNow(), std::vector<std::string>(expected.begin() + 1, expected.end() - 3));
    ASSERT_EQ(sim_.Ctl("maximize room"), "");
    EXPECT_EQ(BarNow(), expected);

    // Prism&o, Exit Prismo: the menu leaves, the room's pictures stay.
    EXPECT_TRUE(ExitPrismo());
    std::vector<std::string> left = expected;
    left.erase(left.begin() + 6);
    EXPECT_EQ(BarNow(), left);
}

// Seven menus: after AOL's seventh, its last; eight: before the eighth.
TEST_F(ChatMaximised, WithSevenOrEightMenusPrismoFollowsTheSeventh)
{
    for (int menus : {7, 8}) {
        SCOPED_TRACE(menus);
        ASSERT_TRUE(sim_.Start("40", "--menus " + std::to_string(menus) + " --signed-on \"Zun Tester\" --mail"));
        ASSERT_EQ(sim_.Ctl("maximize mail"), "");
        ASSERT_TRUE(prismo_.Start("\"" + Prismo() + "\""));
        const size_t size = static_cast<size_t>(menus) + 5;
        EXPECT_TRUE(PumpUntil([&] { return BarNow().size() == size; }, 60000)) << sim_.Ctl("menu");
        std::vector<std::string> bar = BarNow();
        ASSERT_EQ(bar.size(), size);
        EXPECT_EQ(bar[8], "Prism&o");
        EXPECT_EQ(bar[menus == 7 ? 7 : 9], "&Help");
        EXPECT_EQ(std::vector<std::string>(bar.end() - 3, bar.end()), kButtons);
        EXPECT_TRUE(ExitPrismo());
        bar = BarNow();
        EXPECT_EQ(std::count(bar.begin(), bar.end(), "Prism&o"), 0);
        EXPECT_EQ(bar.size(), size - 1);
        TearDown();
        SetUp();
    }
}

}  // namespace
