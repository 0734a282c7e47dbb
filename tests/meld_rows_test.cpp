// Where melded cards lie and at what pace they get there: the staging row,
// the rows of each kind for both sides, the dix, and the hand around them.
#include "melds/meld_rows.h"

#include <gtest/gtest.h>

#include "table/deal.h"
#include "table/hand_rows.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

struct RowCase {
    const char* name;
    int who, upCard;
    std::vector<int> cards;
    std::vector<Meld> melds;
    std::vector<int> watched;
    std::string seen;
    friend void PrintTo(const RowCase& c, std::ostream* out) { *out << c.name; }
};

class MeldLaidOut : public ::testing::TestWithParam<RowCase> {};

// The hand is laid first, as in play.
TEST_P(MeldLaidOut, CardsFlyToTheStagingRowThenIntoTheirRow) {
    const RowCase& c = GetParam();
    RoundOneTable table(Hearts, c.upCard, 5);
    Game& g = table.g;
    table.Give(c.who, c.cards);
    ShowStock(g);
    c.who == ThePlayer ? RedrawHand(g) : ShowOpponentHand(g);
    for (std::size_t k = 0; k + 1 < c.melds.size(); ++k) c.melds[k](g, c.who);
    Watch watch(table.hg, c.watched.empty() ? c.cards : c.watched);
    c.melds.back()(g, c.who);
    EXPECT_EQ(watch.End(), c.seen);
}

// The Queen of Hearts played from her row to a trick; a King of the player's
// lying in a run, a four and a marriage, which no row of the robot's takes.
constexpr int AC = CardIndex(Ace, Clubs);
const Meld kOthersKing = [](Game& g, int) {
    CardRec& king = Card(g, Second(KD));
    king.Place = PlacePlayerHand;
    king.InRun = king.InFourKings = king.InMarriage = true;
};
const Meld kPlayQH = [](Game& g, int) { Card(g, QH).Place = PlacePlayed; };

// The last meld is watched; the cards watched are those given unless named.
INSTANTIATE_TEST_SUITE_P(
    Rows, MeldLaidOut,
    ::testing::Values(
        RowCase(
            "RobotSecondRun", TheRobot, Second(NH), BothCopies(kHeartRun),
            {kRun, kOthersKing, kRun}, {AH, TH, KH, QH, JH, Second(AH)},
            " 27@3130,120 29@3380,120 31@3630,120 33@3600,1680#33^*+350+350 "
            "31@4680,1680#31^*+350+350 29@5760,1680#29^*+350+350 27@6840,1680#27^*+350+350 "
            "25@7920,1680#25^*+350+350 25@2000,2250+100 26@2330,2250^+100 27@2660,2250^+100+100 "
            "29@3320,2250^+100+100 31@3980,2250^+100+100 33@4640,2250^+100+100+300"),
        RowCase("RobotKingsAfterAces", TheRobot, Second(NH), {KD, KC, KH, KS, AD, AC, AH, AS, NC},
                {Fours(Ace), kOthersKing, Fours(King)}, {},
                " 5@3600,1680#5^*+350+350 17@4680,1680#17^*+350+350 29@5760,1680#29^*+350+350 "
                "41@6840,1680#41^*+350+350 5@2000,3450 17@2330,3450 29@2660,3450 41@2990,3450 "
                "1@3320,3450 13@3650,3450 25@3980,3450 37@4310,3450^+300 23@2880,120^"),
        RowCase("RobotMarriageBesidePlayedQueen", TheRobot, Second(NH), {KC, QC, KH, QH, NC},
                {Marriage(Hearts), kPlayQH, kOthersKing, Marriage(Clubs)}, {},
                " 19@3600,1680#19^*+350+350 17@4680,1680#17^*+350+350 17@2000,4650+100 "
                "19@2350,4650^+100 29@2700,4650^+100+300 23@2880,120^"),
        RowCase("RobotPinochle", TheRobot, Second(NH), {JD1, QS1, NC}, {kPinochle}, {},
                " 9@3600,1680#9^*+350+350 43@4680,1680#43^*+350+350 9@5610,2250 43@5960,2250+300"),
        RowCase("RobotDoubleAfterSingle", TheRobot, Second(NH), kPinochleCards,
                {kPinochle, kDouble}, {},
                " 9@3600,1680^*+350+350 43@4680,1680^*+350+350 10@5760,1680#10^*+350+350 "
                "44@6840,1680#44^*+350+350 9@5610,2250 10@5940,2250 43@6270,2250 44@6600,2250+300"),
        RowCase("RobotDixOnTable", TheRobot, Second(NH), {NH, NC}, {kDix}, {},
                " 35@3600,1680#35*+350+350 35@8820,3000 23^"),
        RowCase("PlayerDixOnTable", ThePlayer, Second(NH), {NH, NC}, {kDix}, {},
                " 35@3600,8640*+350+350 35@8820,8400+100 23^"),
        RowCase("RobotDixExchange", TheRobot, KH, {NH, NC}, {kDix}, {NH, KH, NC, 48},
                " 35@4110,2295#35 29@2670,2070^+1100 35@100,100 29@3130,120#49 48^")));

// The player's run: all five cards are melded before the first flies, so a
// sort served while they fly lays only the rest of the hand (and cuts the
// wait short).
TEST(MeldRun, SortWhileTheRunFliesLeavesItsCardsOutOfTheHand) {
    RoundOneTable table;
    Game& g = table.g;
    table.Give(ThePlayer, {AH, TH, KH, QH, JH, AD, AS});
    RedrawHand(g);
    table.hg.platform.script.assign({TableEvent{TableEventKind::SortClick}});
    Watch watch(table.hg, {AH, TH, KH, QH, JH, AD, AS});
    MeldRun(g, ThePlayer);
    EXPECT_EQ(
        watch.End(),
        " 33@3600,8640^*+1 37@3000,10080^+99+100 31@4680,8640^*+350+350 29@5760,8640^*+350+350 "
        "27@6840,8640^*+350+350 25@7920,8640^*+350+350 25@2000,6405+100 27@2330,6405^+100 "
        "29@2660,6405^+100 31@2990,6405^+100 33@3320,6405^+100+300");
}

}  // namespace
}  // namespace trickhaven
