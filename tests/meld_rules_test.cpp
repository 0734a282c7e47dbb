// What makes a meld and what it scores: the cards each meld takes and the
// flags it leaves on them, the points and the status line, the rescoring of
// a run and a double, every refusal, and the two kinds of dix.
#include "melds/meld_rules.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

// Every flagged card as "card:flags", one letter a flag in the order of the
// card record: Melded, DixSwapped, DixOnTable, InMarriage, InFourKings,
// InFourQueens, InFourJacks, InFourAces, InRun, InPinochle, InDoublePinochle,
// DoublePinochleMark, MarriageDone (w), RunDone, FoursDone, DoublePinochleDone
// (e), DixDone (n).
std::string Flags(const Game& g) {
    std::string text;
    for (int card = 1; card <= CardCount; ++card) {
        const int bits = CardFlagBits(Card(g, card));
        if (bits != 0) text += ' ' + std::to_string(card) + ':';
        for (int k = 0; k < 17; ++k) {
            if ((bits >> k & 1) != 0) text += "MSTmKQJARPDdwrfen"[k];
        }
    }
    return text;
}

TableLabel LastMeldLabel(int who) {
    return who == ThePlayer ? TableLabel::LblLastMeldP : TableLabel::LbllLastMeldC;
}

struct MeldCase {
    int who, trumps;
    std::vector<int> cards;
    std::vector<Meld> melds;
    std::vector<int> points;  // the last-meld label after each meld
    std::vector<std::string> statuses;
    std::string flags;  // and the up card
    friend void PrintTo(const MeldCase& c, std::ostream* out) { *out << "flags" << c.flags; }
};

class MeldMade : public ::testing::TestWithParam<MeldCase> {};

// The player's offer ends with his meld; the robot's melds leave it be.
TEST_P(MeldMade, TakesItsCardsFlagsThemAndScores) {
    const MeldCase& c = GetParam();
    RoundOneTable table(c.trumps, KD);
    Game& g = table.g;
    table.Give(c.who, c.cards);
    g.MeldAwaited = true;
    table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
    int total = 0;
    for (std::size_t k = 0; k < c.melds.size(); ++k) {
        c.melds[k](g, c.who);
        EXPECT_TRUE(g.MeldDone) << k;
        EXPECT_EQ(table.hg.table.Caption(LastMeldLabel(c.who)), std::to_string(c.points[k])) << k;
        total += c.points[k];
    }
    EXPECT_EQ(c.who == ThePlayer ? g.PlayerTotalMelds : g.OpponentTotalMelds, total);
    std::vector<std::string> statuses;
    for (const auto& [panel, text] : table.hg.table.PanelHistory()) statuses.push_back(text);
    EXPECT_EQ(statuses, c.statuses);
    EXPECT_EQ(Flags(g) + " up:" + std::to_string(g.UpCard), c.flags);
    EXPECT_EQ(g.MeldAwaited, c.who == TheRobot);
    EXPECT_FALSE(c.who == ThePlayer && table.hg.table.IsControlVisible(TableControl::FramDeclare));
    EXPECT_TRUE(table.hg.table.Messages().empty());
}

const std::vector<int> kRunAndPair{AH, TH, KH, Second(KH), QH, Second(QH), JH};
const Meld kRoyal = Marriage(Hearts);
const std::string kRun150 = "Adascores for run 150", kRun110 = "Adascores for run 110";

// A run whose King or Queen a royal marriage already scored gets 110; a
// double after the single gets 460. The run takes the later of two like
// cards, every other meld the earlier. A marriage writes no status.
INSTANTIATE_TEST_SUITE_P(
    Cases, MeldMade,
    ::testing::Values(
        MeldCase(ThePlayer, Hearts, BothCopies(kHeartRun), {kRun, kRun}, {150, 150},
                 {kRun150, kRun150},
                 " 25:MRr 26:MRr 27:MRr 28:MRr 29:MRr 30:MRr 31:MRr 32:MRr 33:MRr 34:MRr up:5"),
        MeldCase(TheRobot, Hearts, kHeartRun, {kRoyal, kRun}, {40, 110},
                 {"Lorindascores for run 110"}, " 25:MRr 27:MRr 29:MmRwr 31:MmRwr 33:MRr up:5"),
        MeldCase(ThePlayer, Hearts, kRunAndPair, {kRoyal, kRun}, {40, 150}, {kRun150},
                 " 25:MRr 27:MRr 29:Mmw 30:MRr 31:Mmw 32:MRr 33:MRr up:5"),
        MeldCase(ThePlayer, Hearts, {AH, TH, KH, Second(KH), QH, JH}, {kRoyal, kRun}, {40, 110},
                 {kRun110}, " 25:MRr 27:MRr 29:Mmw 30:MRr 31:MmRwr 33:MRr up:5"),
        MeldCase(ThePlayer, Hearts, {AH, TH, KH, QH, Second(QH), JH}, {kRoyal, kRun}, {40, 110},
                 {kRun110}, " 25:MRr 27:MRr 29:MmRwr 31:Mmw 32:MRr 33:MRr up:5"),
        MeldCase(TheRobot, Hearts, {KC, Second(KC), QC, Second(QC)}, {Marriage(Clubs)}, {20}, {},
                 " 17:Mmw 19:Mmw up:5"),
        MeldCase(ThePlayer, Spades, {AS, TS, KS, QS1, JS, JD1}, {kPinochle, Marriage(Spades), kRun},
                 {40, 40, 110}, {"Ada scores 40 for Single Pinochle", kRun110},
                 " 9:MP 37:MRr 39:MRr 41:MmRwr 43:MmRPwr 45:MRr up:5"),
        MeldCase(ThePlayer, Hearts, kPinochleCards, {kPinochle, kDouble}, {40, 460},
                 {"Ada scores 40 for Single Pinochle", "Ada scores 460 for Double Pin "},
                 " 9:MPDde 10:MDde 43:MPDde 44:MDde up:5"),
        MeldCase(TheRobot, Hearts, kPinochleCards, {kDouble}, {500},
                 {"Lorinda scores 500 for Double Pin "}, " 9:MDde 10:MDde 43:MDde 44:MDde up:5"),
        MeldCase(ThePlayer, Hearts, {JD1, QS2}, {kPinochle}, {40},
                 {"Ada scores 40 for Single Pinochle"}, " 9:MP 44:MP up:5"),
        MeldCase(TheRobot, Hearts, {JD2, QS1, QS2}, {kPinochle}, {40},
                 {"Lorinda scores 40 for Single Pinochle"}, " 10:MP 43:MP up:5"),
        MeldCase(TheRobot, Hearts, BothCopies(FirstOfEachSuit({Ace})), {Fours(Ace), Fours(Ace)},
                 {100, 100}, {"Lorinda scores 100 for 4 Aces", "Lorinda scores 100 for 4 Aces"},
                 " 1:MAf 2:MAf 13:MAf 14:MAf 25:MAf 26:MAf 37:MAf 38:MAf up:5"),
        MeldCase(ThePlayer, Hearts, FirstOfEachSuit({King, Queen, Jack}),
                 {Fours(King), Fours(Queen), Fours(Jack)}, {80, 60, 40},
                 {"Ada scores 80 for 4 Kings", "Ada scores 60 for 4 Queens",
                  "Ada scores 40 for 4 Jacks"},
                 " 5:MKf 7:MQf 9:MJf 17:MKf 19:MQf 21:MJf 29:MKf 31:MQf 33:MJf 41:MKf 43:MQf "
                 "45:MJf up:5"),
        // The first nine takes the turned-up King; the second finds a nine
        // turned up and lies on the table.
        MeldCase(ThePlayer, Hearts, {NH, Second(NH)}, {kDix}, {10},
                 {"Ada melded Dix for 10 points."}, " 35:S up:35"),
        MeldCase(TheRobot, Hearts, {NH, Second(NH)}, {kDix, kDix}, {10, 10},
                 {"Lorinda melded Dix for 10 points.", "Lorinda melded Dix for 10 points"},
                 " 35:S 36:MTn up:35"),
        // After trick 12 the up card lies in a hand: the nine goes to the table.
        MeldCase(ThePlayer, Hearts, {NH, KD}, {kDix}, {10}, {"Ada melded Dix for 10 points"},
                 " 35:MTn up:5")));

struct RefusalCase {
    std::vector<int> cards;
    std::vector<Meld> before;  // melds made first, which must succeed
    Meld meld;
    std::string title, button, text;
    friend void PrintTo(const RefusalCase& c, std::ostream* out) { *out << '"' << c.title << '"'; }
};

class MeldRefused : public ::testing::TestWithParam<RefusalCase> {};

TEST_P(MeldRefused, PlayerIsToldAndNothingChanges) {
    const RefusalCase& c = GetParam();
    RoundOneTable table(Hearts, Second(NH));
    Game& g = table.g;
    table.Give(ThePlayer, c.cards);
    for (const Meld& meld : c.before) meld(g, ThePlayer);
    g.MeldAwaited = true;
    table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
    const std::string flags = Flags(g);
    table.hg.table.SetCaption(TableLabel::LblLastMeldP, "40");
    table.hg.table.timeline.clear();
    g.MeldDone = false;
    c.meld(g, ThePlayer);
    EXPECT_FALSE(g.MeldDone);
    EXPECT_TRUE(g.MeldAwaited);
    EXPECT_EQ(Flags(g), flags);
    EXPECT_EQ(g.DelayMs, g.GameSpeed);
    // The box is the one change of the table, but for the labels of a failed
    // double, which shows its 0.
    EXPECT_EQ(table.hg.table.Caption(TableLabel::LblLastMeldP),
              c.title == "No Double Pinochle" ? "0" : "40");
    std::vector<std::string> changes;
    for (const std::string& line : table.hg.table.timeline) {
        if (line.find(" caption ") == line.npos) changes.push_back(line.substr(line.find(' ')));
    }
    EXPECT_EQ(changes, std::vector<std::string>{" message " + c.title});
    const MessageRecord& box = table.hg.table.Messages().at(0);
    EXPECT_EQ(
        std::tuple(box.kind, box.icon, box.text, box.buttons[0] + box.buttons[1] + box.buttons[2]),
        std::tuple("deluxe", 1, "Ada" + c.text, c.button));
}

std::string NoneOf(const std::string& what) {
    return " sorry, you do not appear to have a " + what +
           " of that suit. Please try again or click Cancel to receive a card";
}
std::string Already(const std::string& what) {
    return " you have already melded a " + what +
           ". Please try again or click cancel to receive another card.";
}
// The nine turned up at the deal, taken into the hand with the last pair.
const Meld kTurnedUpNine = [](Game& g, int) { Card(g, NH).Melded = true; };

// The second of two melds is refused when the first holds a card it needs.
INSTANTIATE_TEST_SUITE_P(
    Cases, MeldRefused,
    ::testing::Values(
        RefusalCase({AH, TH, KH, QH, JH, Second(AH), Second(TH), Second(KH), Second(QH)}, {kRun},
                    kRun, "No Run", "Oh Dear",
                    " sorry, you do appear to have a run.Please try again, or Cancel to receive a "
                    "card."),
        RefusalCase({}, {}, Fours(Ace), "No Diamond", "Oh Dear", NoneOf("Diamond")),
        RefusalCase({KD, KC, KH, KS, Second(KD)}, {Fours(King)}, Fours(King), "No Club", "Oh Dear",
                    NoneOf("Club")),
        RefusalCase({QD, QC, QS1}, {}, Fours(Queen), "No Heart", "Oh Dear", NoneOf("Heart")),
        RefusalCase({JD1, CardIndex(Jack, Clubs), JH}, {}, Fours(Jack), "No Spade", "Oh Dear",
                    NoneOf("Spade")),
        RefusalCase(kPinochleCards, {kDouble}, kDouble, "Already Melded", "Right",
                    Already("Double Pinochle")),
        RefusalCase({JD1, QS1, QS2}, {}, kDouble, "No Double Pinochle", "Oh Dear",
                    " sorry, you do not have a Double Pinochle. Try again or click Cancel to "
                    "receive a card"),
        RefusalCase(kPinochleCards, {kPinochle}, kPinochle, "Already Melded", "Right",
                    Already("Pinochle")),
        RefusalCase(kPinochleCards, {kDouble}, kPinochle, "Already Melded", "Right",
                    Already("Pinochle")),
        RefusalCase({JD1, JD2}, {}, kPinochle, " No Pinochle", "Oh Dear",
                    " sorry, you do not have a Single Pinochle. Make different Meld or click "
                    "Cancel to receive card."),
        RefusalCase({KC, QC}, {Marriage(Clubs)}, Marriage(Clubs), "No King.", "Oh Dear",
                    NoneOf("King")),
        RefusalCase({KC}, {}, Marriage(Clubs), "No Queen.", "Oh Dear", NoneOf("Queen")),
        RefusalCase({NH, NC}, {kTurnedUpNine}, kDix, "No Nine", "Right",
                    " sorry, you do not have a Nine to Dix. Please try again or click Cancel to "
                    "receive a new card")));

}  // namespace
}  // namespace trickhaven
