// The last tricks of a hand, played at speed 100 on a table laid by hand;
// the timeline pins the steps of each trick and their waits.
#include "round_two/round_two.h"

#include <gtest/gtest.h>

#include <deque>
#include <regex>

#include "game/session.h"
#include "headless/player_policy.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

constexpr int NineD = CardIndex(Nine, Diamonds), JackC = CardIndex(Jack, Clubs);

// The steps a player sees, one a line: status texts, boxes, and cards
// reaching a pile.
std::string Steps(const HeadlessTable& table) {
    static const std::regex step("^\\d+ (panel|message) | (7560|2640)$");
    std::string steps;
    for (const std::string& line : table.timeline) {
        if (std::regex_search(line, step)) steps += line + "\n";
    }
    return steps;
}

// The robot leads twice: a Spade on Hearts and a Club with a trump in hand
// are refused. The player wins the second trick; his click in the closing
// wait is already the next lead. The last trick earns no 10.
TEST(RoundTwo, TricksAreLedAnsweredBookedAndGatheredAtTheirPace) {
    HeadlessGame hg;
    Game& g = hg.game;
    ClearTable(g);
    PlaceCards(g, PlacePlayerHand, {TH, KS, JackC});
    PlaceCards(g, PlaceOpponentHand, {AH, NineD, NC});
    g.OpponentName = "Lorinda";
    g.TargetScore = 1000;
    // At the target and not knocked in time: only the end of the hand tests it.
    g.PlayerTotal = 1000;
    g.GameOn = g.RoundTwoOn = true;
    g.TrumpSuit = Spades;
    g.Leader = TheRobot;
    g.TrickCount = 21;
    // The player clicks the cards in turn, each as soon as a card is awaited.
    hg.platform.policy = [clicks = std::deque{KS, TH, JackC, KS, JackC}](
                             Game& game) mutable -> std::optional<TableEvent> {
        if (clicks.empty() || !CardAwaited(game)) return std::nullopt;
        const int card = clicks.front();
        clicks.pop_front();
        return TableEvent{TableEventKind::CardClick, card};
    };
    EXPECT_THROW(ContinueRoundTwo(g), GameAbandoned);
    EXPECT_EQ(Steps(hg.table),
              "0 panel 3 Tricks 22\n100 panel 2 Lorinda plays Ace of Hearts\n"
              "950 panel 2 Lorinda has played Ace of Hearts\n"
              "950 panel 2 Player your lead, please click card to play\n"
              "1051 message Must follow suit.\n1052 panel 2 Player is playing Ten of Hearts\n"
              "1952 panel 2 Lorinda 's trick score is 21\n3202 move 25 10440 2640\n"
              "3802 panel 3 Tricks 23\n3902 panel 2 Lorinda plays Nine of Diamonds\n"
              "4752 panel 2 Lorinda has played Nine of Diamonds\n"
              "4752 panel 2 Player your lead, please click card to play\n"
              "4853 message You have a Trump\n4854 panel 2 Player is playing King of Spades\n"
              "5754 panel 2 Player 's trick score is 4\n7004 move 11 10440 7560\n"
              "7754 panel 2 Player your turn, please click card to play\n"
              "7755 panel 2 Player is playing Jack of Clubs\n8655 panel 3 Tricks 24\n"
              "8655 panel 2 Player your lead, please click card to play\n"
              "8855 panel 2 Lorinda plays Nine of Clubs\n"
              "9605 panel 2 Lorinda has played Nine of Clubs\n"
              "9605 panel 2 Player 's trick score is 2\n10855 move 21 10530 7560\n"
              "11605 panel 2 Player your turn, please click card to play\n"
              "11705 message Play again?\n");
    EXPECT_NE(hg.table.Messages().at(2).text.find(" points 1006 against 21 "), std::string::npos);
    EXPECT_EQ(hg.table.Caption(TableLabel::LblTotalScoreP) + " against " +
                  hg.table.Caption(TableLabel::LblTotScoreC),
              "1006 against 21");
}

}  // namespace
}  // namespace trickhaven
