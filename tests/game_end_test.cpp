// The last tricks of a hand, played on a table laid by hand, the target
// tests, the knock, the end of a hand and of a game, at speed 100; the
// timeline pins the steps of each trick and the waits.
#include "round_one/game_end.h"

#include <gtest/gtest.h>

#include <deque>
#include <regex>
#include <tuple>

#include "data/data_file.h"
#include "data/robot_file.h"
#include "game/session.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "round_two/round_two.h"
#include "tests/meld_fixtures.h"
#include "tests/told_messages.h"

namespace trickhaven {
namespace {

using Lines = std::vector<std::string>;
const std::string kSaved = ",100,\"Player\",\"Lorinda\",1000\r\n";

// A game at the given totals against a target of 1000.
struct ScoresTable {
    ScoresTable(bool roundOne, int player, int robot) : g(hg.game) {
        ClearTable(g);
        g.GameOn = true;
        g.RoundOneOn = roundOne;
        g.RoundTwoOn = !roundOne;
        g.OpponentName = "Lorinda";
        g.TargetScore = 1000;
        g.PlayerTotal = static_cast<std::int16_t>(player);
        g.OpponentTotal = static_cast<std::int16_t>(robot);
    }
    // Runs a routine that may end the game; gives what the session is asked.
    SessionRequest Unwound(void (*routine)(Game&)) {
        try {
            routine(g);
        } catch (const GameAbandoned&) {
        }
        return g.Request;
    }
    HeadlessGame hg;
    Game& g;
};

TEST(CheckTarget, EachTestOfEachRoundAtTheEdgesOfTheTarget) {
    // The round, the target, the totals, a knock made, then what the table
    // shows, the target and the games won by each side.
    using Row = std::tuple<bool, int, int, int, bool, Lines, int, int, int>;
    const Lines ended{"0 message Play again?"}, raised{"0 message Both over target"};
    const Lines raisedAndEnded{"0 message Both over target", "0 message Play again?"};
    const Lines robotKnock{"0 sound knock.wav", "400 message Play again?"};
    for (const auto& [roundOne, before, player, robot, knock, timeline, target, won, lost] :
         std::vector<Row>{{true, 1000, 999, 999, false, {}, 1000, 0, 0},
                          {true, 1000, 1000, 1000, false, {}, 1000, 0, 0},
                          {true, 1000, 999, 1000, false, robotKnock, 1000, 0, 1},
                          {true, 1000, 1000, 1000, true, {"0 hide LblKnock"}, 1000, 0, 0},
                          {false, 1000, 1000, 999, false, ended, 1000, 1, 0},
                          {false, 1000, 999, 1000, false, ended, 1000, 0, 1},
                          {false, 1000, 999, 999, false, {}, 1000, 0, 0},
                          {false, 1000, 1000, 1000, false, raised, 1250, 0, 0},
                          {false, 1000, 1400, 1300, false, raised, 1250, 0, 0},
                          {false, 1250, 1550, 1600, false, raised, 1500, 0, 0},
                          {false, 1000, 1040, 1300, false, raisedAndEnded, 1250, 0, 1},
                          {false, 1000, 1300, 1100, false, raisedAndEnded, 1250, 1, 0}}) {
        ScoresTable t(roundOne, player, robot);
        t.g.TargetScore = static_cast<std::int16_t>(before);
        t.g.PlayerKnocked = knock;
        t.Unwound(CheckTarget);
        EXPECT_EQ(t.hg.table.timeline, timeline);
        EXPECT_EQ(std::tuple(t.g.TargetScore, t.g.GameStats[1], t.g.GameStats[2]),
                  std::tuple(target, won, lost));
        if (target == before) continue;
        EXPECT_EQ(t.hg.table.Title(), "Target Score:- " + std::to_string(target));
        EXPECT_EQ(Told(t.hg.table).at(0),
                  "Both over target [O.K||] 1: As you are both over target score it will increase "
                  "by 250 and another hand played.");
    }
}

// The knock is offered at the target in Round One, sounds and waits twice
// its pause before the target is tested.
TEST(Knock, ThePlayersKnockWinsAtItsPaceAndIsRefusedInRoundTwo) {
    ScoresTable t(true, 1000, 999);
    CheckTarget(t.g);
    EXPECT_EQ(t.Unwound(LblKnock_Click), SessionRequest::NewGame);
    EXPECT_EQ(std::tuple(t.hg.table.timeline, t.g.GameStats[1]),
              std::tuple(Lines{"100 show LblKnock", "100 sound knock.wav", "1000 show LblKnock",
                               "1000 hide LblKnock", "1000 message Play again?"},
                         1));
    // A hidden label takes no click; in Round Two the knock is refused.
    ScoresTable late(false, 1000, 999);
    late.g.OpponentName = "Zora";
    LblKnock_Click(late.g);
    late.hg.table.SetControlVisible(TableControl::LblKnock, true);
    LblKnock_Click(late.g);
    EXPECT_EQ(Told(late.hg.table),
              Lines{"Can't Knock Now [Oh Right||] 3: Player Sorry, you must knock during Round 1. "
                    "Lorinda might catch you up on Trick Scores"});
    EXPECT_EQ(std::tuple(late.hg.table.timeline.size(), late.g.GameOn), std::tuple(2U, true));
}

// Counted, told, then saved whatever the answer; Exit leaves without
// All.dat, Play starts a new game.
TEST(GameEnd, LostAndWonAreCountedToldAndSavedThenExitOrPlay) {
    ScoresTable t(true, 1000, 900);
    Lines savedAtQuestion;
    t.hg.table.answerDeluxe = [&](const MessageRecord&) {
        savedAtQuestion.push_back(FileBytes(t.hg.folder / "Data.dat"));
        return savedAtQuestion.size() == 1 ? 1 : 0;
    };
    EXPECT_EQ(t.Unwound(GameLost), SessionRequest::Quit);
    EXPECT_FALSE(std::filesystem::exists(t.hg.folder / "All.dat"));
    EXPECT_EQ(t.Unwound(GameWon), SessionRequest::NewGame);
    EXPECT_EQ(std::tuple(savedAtQuestion, FileBytes(t.hg.folder / "Data.dat"), t.g.GameOn),
              std::tuple(Lines{"", "0,1" + kSaved}, "1,1" + kSaved, false));
    const std::string scores =
        " that game with points 1000 against 900 for LorindaClick on Play for another game or "
        "Exit to leave the game.";
    EXPECT_EQ(Told(t.hg.table),
              (Lines{"Play again? [Play|Exit|] 1: Player unfortunately, you lost" + scores,
                     "Play again? [Play|Exit|] 1: Player well done, you won" + scores}));
}

// Games against the Expert are counted in Robot.dat: GameStats, and
// Data.dat with them, stay the Classic robot's, byte for byte.
TEST(GameEnd, GamesAgainstTheExpertAreCountedApartAndDataDatKeepsItsBytes) {
    ScoresTable t(true, 1000, 900);
    t.g.Robot = t.g.ChosenRobot = RobotKind::Expert;
    SaveData(t.g);
    const std::string data = FileBytes(t.hg.folder / "Data.dat");
    // Exit leaves the game on, so that it can end again.
    t.hg.table.answerDeluxe = [](const MessageRecord&) { return 1; };
    for (void (*end)(Game&) : {GameLost, GameLost, GameWon}) t.Unwound(end);
    EXPECT_EQ(FileBytes(t.hg.folder / "Data.dat"), data);
    EXPECT_EQ(t.g.GameStats, (std::array<std::int32_t, 3>{}));
    EXPECT_EQ(FileBytes(t.hg.folder / kRobotFileName),
              FormatRobotRecord({RobotKind::Expert, {0, 1, 2}}));
}

// Trick points join the totals; a hand that ends no game is told, with the
// totals.
TEST(EndOfHand, TotalsGrowAndTheHandIsToldUnlessTheGameEnds) {
    using Row = std::tuple<int, int, int, int, std::string, std::string>;
    for (const auto& [melds, tricks, robotMelds, robotTricks, title, words] :
         {Row{60, 150, 40, 100, "Hand Won", "you won that hand with points 210 against 140"},
          Row{0, 90, 20, 160, "Hand Lost",
              "unfortunately you lost that hand with points 90 against 180"},
          Row{20, 110, 0, 130, "Draw", "the hand was a draw with 130 against 130"}}) {
        ScoresTable t(false, 300 + melds, 200 + robotMelds);
        t.g.PlayerTotalMelds = static_cast<std::int16_t>(melds);
        t.g.PlayerTotalTricks = static_cast<std::int16_t>(tricks);
        t.g.OpponentTotalMelds = static_cast<std::int16_t>(robotMelds);
        t.g.OpponentTotalTricks = static_cast<std::int16_t>(robotTricks);
        t.Unwound(EndOfHand);
        const std::string player = std::to_string(300 + melds + tricks);
        const std::string robot = std::to_string(200 + robotMelds + robotTricks);
        EXPECT_EQ(
            Told(t.hg.table),
            (Lines{title + " [Right||] 1: Player Game not over, but " + words,
                   "Total Scores [O.K||] 1: Your total score is " + player + " against " + robot}));
    }
}

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
