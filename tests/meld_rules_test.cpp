// What makes a meld and what it scores: the cards each meld takes and the
// flags it leaves on them, the points and the status line, the rescoring of
// a run and a double, every refusal, and the two kinds of dix.
#include "melds/meld_rules.h"

#include <gtest/gtest.h>

#include <tuple>

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
        for (int k = 0; k < 17; ++k) text += std::string(bits >> k & 1, "MSTmKQJARPDdwrfen"[k]);
    }
    return text;
}

struct MeldCase {
    const char* name;
    int who;
    std::vector<int> cards;
    std::vector<Meld> melds;
    std::vector<int> points;  // the last-meld label after each meld
    std::vector<std::string> statuses;
    std::string flags;  // and the up card
    std::string told;   // the refusal of the last meld: "title|button|text"
    friend void PrintTo(const MeldCase& c, std::ostream* out) { *out << c.name; }
};

class MeldMade : public ::testing::TestWithParam<MeldCase> {};

// The player's offer ends with his meld; the robot's melds leave it be. A
// refused meld leaves the offer, the cards and the status line as they were
// and tells the player why.
TEST_P(MeldMade, TakesItsCardsFlagsThemAndScoresOrTellsWhyNot) {
    const MeldCase& c = GetParam();
    RoundOneTable table(Hearts, KD);
    Game& g = table.g;
    table.Give(c.who, c.cards);
    const auto seen = [&] {
        std::string text = Flags(g) + " up:" + std::to_string(g.UpCard);
        for (const auto& [panel, status] : table.hg.table.PanelHistory()) text += '|' + status;
        return text;
    };
    const auto label = c.who == ThePlayer ? TableLabel::LblLastMeldP : TableLabel::LbllLastMeldC;
    const bool refused = !c.told.empty();
    std::string before, expected = c.flags;
    for (const std::string& status : c.statuses) expected += '|' + status;
    int total = 0;
    for (std::size_t k = 0; k < c.melds.size(); ++k) {
        before = seen();
        g.MeldDone = false;
        g.MeldAwaited = true;  // each meld on an offer of its own
        table.hg.table.SetControlVisible(TableControl::FramDeclare, true);
        c.melds[k](g, c.who);
        EXPECT_EQ(g.MeldDone, !refused || k + 1 < c.melds.size()) << k;
        EXPECT_EQ(table.hg.table.Caption(label), std::to_string(c.points[k])) << k;
        total += g.MeldDone ? c.points[k] : 0;
    }
    EXPECT_EQ(c.who == ThePlayer ? g.PlayerTotalMelds : g.OpponentTotalMelds, total);
    EXPECT_EQ(seen(), refused ? before : expected);
    std::string told;
    for (const MessageRecord& box : table.hg.table.Messages()) {
        told += box.kind + std::to_string(box.icon) + ' ' + box.title + '|' + box.buttons[0] +
                box.buttons[1] + box.buttons[2] + '|' + box.text;
    }
    EXPECT_EQ(told, refused ? "deluxe1 " + c.told : "");
    EXPECT_EQ(std::tuple(g.MeldAwaited, g.DelayMs),
              std::tuple(c.who == TheRobot || refused, g.GameSpeed));
    EXPECT_TRUE(c.who == TheRobot ||
                table.hg.table.IsControlVisible(TableControl::FramDeclare) == refused);
}

const Meld kRoyal = Marriage(Hearts);

// A run whose King or Queen a royal marriage already scored gets 110; a
// double after the single gets 460. The run takes the later of two like
// cards, every other meld the earlier. A marriage writes no status.
INSTANTIATE_TEST_SUITE_P(
    Cases, MeldMade,
    ::testing::Values(
        MeldCase("TwoRuns", ThePlayer, BothCopies(kHeartRun), {kRun, kRun}, {150, 150},
                 {"Adascores for run 150", "Adascores for run 150"},
                 " 25:MRr 26:MRr 27:MRr 28:MRr 29:MRr 30:MRr 31:MRr 32:MRr 33:MRr 34:MRr up:5", ""),
        MeldCase("RunOnAMarriedQueen", ThePlayer, {AH, TH, KH, Second(KH), QH, JH}, {kRoyal, kRun},
                 {40, 110}, {"Adascores for run 110"},
                 " 25:MRr 27:MRr 29:Mmw 30:MRr 31:MmRwr 33:MRr up:5", ""),
        MeldCase("RunOnAMarriedKing", TheRobot, {AH, TH, KH, QH, Second(QH), JH}, {kRoyal, kRun},
                 {40, 110}, {"Lorindascores for run 110"},
                 " 25:MRr 27:MRr 29:MmRwr 31:Mmw 32:MRr 33:MRr up:5", ""),
        MeldCase("Marriage", TheRobot, {KC, Second(KC), QC, Second(QC)}, {Marriage(Clubs)}, {20},
                 {}, " 17:Mmw 19:Mmw up:5", ""),
        MeldCase("SingleThenDouble", ThePlayer, kPinochleCards, {kPinochle, kDouble}, {40, 460},
                 {"Ada scores 40 for Single Pinochle", "Ada scores 460 for Double Pin "},
                 " 9:MPDde 10:MDde 43:MPDde 44:MDde up:5", ""),
        MeldCase("SecondJackFirstQueen", TheRobot, {JD2, QS1, QS2}, {kPinochle}, {40},
                 {"Lorinda scores 40 for Single Pinochle"}, " 10:MP 43:MP up:5", ""),
        MeldCase("Fours", ThePlayer, BothCopies(FirstOfEachSuit({Ace, King, Queen, Jack})),
                 {Fours(Ace), Fours(Ace), Fours(King), Fours(Queen), Fours(Jack)},
                 {100, 100, 80, 60, 40},
                 {"Ada scores 100 for 4 Aces", "Ada scores 100 for 4 Aces",
                  "Ada scores 80 for 4 Kings", "Ada scores 60 for 4 Queens",
                  "Ada scores 40 for 4 Jacks"},
                 " 1:MAf 2:MAf 5:MKf 7:MQf 9:MJf 13:MAf 14:MAf 17:MKf 19:MQf 21:MJf 25:MAf 26:MAf "
                 "29:MKf 31:MQf 33:MJf 37:MAf 38:MAf 41:MKf 43:MQf 45:MJf up:5",
                 ""),
        // The first nine takes the turned-up King; the second finds a nine
        // turned up and lies on the table.
        MeldCase("DixExchangeThenOnTable", TheRobot, {NH, Second(NH)}, {kDix, kDix}, {10, 10},
                 {"Lorinda melded Dix for 10 points.", "Lorinda melded Dix for 10 points"},
                 " 35:S 36:MTn up:35", ""),
        // After trick 12 the up card lies in a hand: the nine goes to the table.
        MeldCase("DixAfterTrick12", ThePlayer, {NH, KD}, {kDix}, {10},
                 {"Ada melded Dix for 10 points"}, " 35:MTn up:5", "")));

std::string NoneOf(const std::string& what) {
    return " sorry, you do not appear to have a " + what +
           " of that suit. Please try again or click Cancel to receive a card";
}
std::string Already(const std::string& what) {
    return " you have already melded a " + what +
           ". Please try again or click cancel to receive another card.";
}
// The nine turned up at the deal, taken into the hand with the last pair.
const Meld kTurnedUpNine = [](Game& g, int) { Card(g, NH).Melded = g.MeldDone = true; };

// The second of two melds is refused when the first holds a card it needs;
// a failed double shows its 0.
INSTANTIATE_TEST_SUITE_P(
    Refused, MeldMade,
    ::testing::Values(
        MeldCase(
            "NoRun", ThePlayer, kHeartRun, {kRun, kRun}, {150, 150}, {}, "",
            "No Run|Oh Dear|Ada sorry, you do appear to have a run.Please try again, or Cancel "
            "to receive a card."),
        MeldCase("NoDiamond", ThePlayer, {}, {Fours(Ace)}, {0}, {}, "",
                 "No Diamond|Oh Dear|Ada" + NoneOf("Diamond")),
        MeldCase("NoSpade", ThePlayer, {JD1, CardIndex(Jack, Clubs), JH}, {Fours(Jack)}, {0}, {},
                 "", "No Spade|Oh Dear|Ada" + NoneOf("Spade")),
        MeldCase("SecondDouble", ThePlayer, kPinochleCards, {kDouble, kDouble}, {500, 500}, {}, "",
                 "Already Melded|Right|Ada" + Already("Double Pinochle")),
        MeldCase("NoDouble", ThePlayer, {JD1, QS1, QS2}, {kPinochle, kDouble}, {40, 0}, {}, "",
                 "No Double Pinochle|Oh Dear|Ada sorry, you do not have a Double Pinochle. Try "
                 "again or click Cancel to receive a card"),
        MeldCase("SecondSingle", ThePlayer, kPinochleCards, {kPinochle, kPinochle}, {40, 40}, {},
                 "", "Already Melded|Right|Ada" + Already("Pinochle")),
        MeldCase("SingleAfterDouble", ThePlayer, kPinochleCards, {kDouble, kPinochle}, {500, 500},
                 {}, "", "Already Melded|Right|Ada" + Already("Pinochle")),
        MeldCase("NoPinochle", ThePlayer, {JD1, JD2}, {kPinochle}, {0}, {}, "",
                 " No Pinochle|Oh Dear|Ada sorry, you do not have a Single Pinochle. Make "
                 "different Meld or click Cancel to receive card."),
        MeldCase("NoKing", ThePlayer, {KC, QC}, {Marriage(Clubs), Marriage(Clubs)}, {20, 20}, {},
                 "", "No King.|Oh Dear|Ada" + NoneOf("King")),
        MeldCase("NoQueen", ThePlayer, {KC}, {Marriage(Clubs)}, {0}, {}, "",
                 "No Queen.|Oh Dear|Ada" + NoneOf("Queen")),
        MeldCase("NoNine", ThePlayer, {NH, NC}, {kTurnedUpNine, kDix}, {0, 0}, {}, "",
                 "No Nine|Right|Ada sorry, you do not have a Nine to Dix. Please try again or "
                 "click Cancel to receive a new card")));

}  // namespace
}  // namespace trickhaven
