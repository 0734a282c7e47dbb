// A game in progress outlives the program: the standing saved at each
// game's start and hand's end, offered back at the first New Game of the
// next run, dealt on from its seed, and dropped when the game is over.
#include "data/saved_game.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "data/robot_file.h"
#include "game/session.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "round_one/game_end.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

const GameStanding kMidGame{430, 610, 1250, 2, 3, 0x0123456789abcdefULL};
const std::string kMidGameText =
    "trickhaven saved game 1\nplayer 430\nrobot 610\ntarget 1250\ndealer 2\nhands 3\n"
    "seed 0123456789abcdef\n";

std::filesystem::path SavedFile(const HeadlessGame& hg) {
    return hg.folder / kSavedGameName;
}

auto Fields(const GameStanding& s) {
    return std::tuple(s.PlayerTotal, s.OpponentTotal, s.TargetScore, s.NextDealer, +s.HandsPlayed,
                      s.DealSeed);
}

// The first New Game of a run with these bytes saved, up to its Round One.
void NewGameWith(HeadlessGame& hg, const std::string& saved) {
    std::ofstream(SavedFile(hg), std::ios::binary) << saved;
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn; };
    ASSERT_TRUE(hg.Run());
}

int Offers(const HeadlessGame& hg) {
    return static_cast<int>(
        std::ranges::count(hg.table.Messages(), "Saved Game", &MessageRecord::title));
}

// The deal on the table once Round One is on: where every card lies, the up
// card, the dealer, the game's figures, the generator the stock's draws come
// from, and the totals shown.
auto SeeDeal(const HeadlessGame& hg) {
    const Game& g = hg.game;
    std::vector<int> places;
    for (int card = 1; card <= CardCount; ++card) places.push_back(Card(g, card).Place);
    return std::tuple(places, g.UpCard, g.Dealer, +g.HandNumber, g.PlayerTotal, g.OpponentTotal,
                      g.TargetScore, g.HandCards.state,
                      hg.table.Caption(TableLabel::LblTotalScoreP) + "/" +
                          hg.table.Caption(TableLabel::LblTotScoreC));
}

// Each damaged form of the file, as a change of the mid-game text.
std::vector<std::pair<std::string, std::string>> DamagedForms() {
    const auto with = [](const std::string& from, const std::string& to) {
        std::string text = kMidGameText;
        return text.replace(text.find(from), from.size(), to);
    };
    return {
        {"empty", ""},
        {"cut before the line end", kMidGameText.substr(0, kMidGameText.size() - 1)},
        {"lines missing", kMidGameText.substr(0, 35)},
        {"garbage", std::string("\x7f\x01\xff garbage\n\0\n", 14)},
        {"another version", with("game 1", "game 2")},
        {"a line added", kMidGameText + "melds 40\n"},
        {"carriage returns", with("\nplayer", "\r\nplayer")},
        {"a field renamed", with("robot", "robby")},
        {"a negative score", with("player 430", "player -10")},
        {"a score beyond 16 bits", with("robot 610", "robot 40000")},
        {"a leading zero", with("player 430", "player 0430")},
        {"a target no menu gives", with("target 1250", "target 1100")},
        {"a target below the least", with("target 1250", "target 50")},
        {"more rises than hands", with("target 1250", "target 2000")},
        {"a dealer of neither side", with("dealer 2", "dealer 0")},
        {"hands beyond the counter", with("hands 3", "hands 256")},
        {"points before the first hand",
         with("target 1250\ndealer 2\nhands 3", "target 1000\ndealer 2\nhands 0")},
        {"a short seed", with("0123456789abcdef", "0123456789abcde")},
        {"a seed that is no number", with("0123456789abcdef", "0123456789abcdeg")},
    };
}

TEST(SavedGame, EveryDamagedFormStartsANormalGameAndKeepsItsBytes) {
    for (const auto& [form, bytes] : DamagedForms()) {
        SCOPED_TRACE(form);
        EXPECT_FALSE(ParseStanding(bytes).has_value());
        HeadlessGame hg;
        NewGameWith(hg, bytes);
        EXPECT_EQ(Offers(hg), 0);
        EXPECT_EQ(FileBytes(hg.folder / (std::string(kSavedGameName) + ".unreadable")), bytes);
    }
}

// A whole game played at speed 100: every deal, with the saved file as it
// stood when the deal began.
auto PlayThrough(std::uint64_t seed) {
    HeadlessGame hg(seed);
    std::vector<std::pair<decltype(SeeDeal(hg)), std::string>> deals;
    PlayerPolicy player(PolicyKind::First, seed);
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) { return player.Next(g); };
    hg.table.answerDeluxe = [&](const MessageRecord& m) {
        return m.title == "Play again?" ? 1 : player.Answer(m);
    };
    hg.platform.stopWhen = [&](const Game& g) {
        if (g.RoundOneOn && g.HandNumber > deals.size()) {
            deals.emplace_back(SeeDeal(hg), FileBytes(SavedFile(hg)));
        }
        return false;
    };
    EXPECT_FALSE(hg.Run()) << "the game ends with its Exit";
    EXPECT_FALSE(std::filesystem::exists(SavedFile(hg))) << "a finished game leaves no save";
    return deals;
}

TEST(SavedGame, AGameLeftAfterAnyHandGoesOnWithTheSameFiguresAndDeal) {
    for (const std::uint64_t seed : {5U, 6U}) {
        const auto deals = PlayThrough(seed);
        ASSERT_GE(deals.size(), 3U);
        for (std::size_t hand = 0; hand < deals.size(); ++hand) {
            SCOPED_TRACE(std::to_string(seed) + " hand " + std::to_string(hand + 1));
            // Another run of the program, with another clock and generator.
            HeadlessGame hg(seed * 1000 + hand);
            NewGameWith(hg, deals[hand].second);
            EXPECT_EQ(Offers(hg), 1);
            EXPECT_EQ(SeeDeal(hg), deals[hand].first);
        }
    }
}

// Round Two over with the hand's tricks counted, as EndOfHand finds it.
void AtHandEnd(Game& g, int player, int robot, int playerTricks, int robotTricks) {
    ClearTable(g);
    g.GameOn = g.RoundTwoOn = true;
    g.Dealer = TheRobot;
    g.HandNumber = 4;
    g.TargetScore = 1000;
    g.PlayerTotal = static_cast<std::int16_t>(player);
    g.OpponentTotal = static_cast<std::int16_t>(robot);
    g.PlayerTotalTricks = static_cast<std::int16_t>(playerTricks);
    g.OpponentTotalTricks = static_cast<std::int16_t>(robotTricks);
}

TEST(SavedGame, EachHandEndAndEachRiseSavesWithTheNextDealsSeedAndGameOverDropsIt) {
    // Both over the target at the hand's end: it rises, and the file holds
    // the rise while each message is up.
    HeadlessGame hg;
    Game& g = hg.game;
    AtHandEnd(g, 900, 880, 130, 120);
    const std::uint64_t before = g.NextDealSeed;
    std::vector<std::optional<GameStanding>> seen;
    hg.table.answerDeluxe = [&](const MessageRecord&) {
        seen.push_back(ParseStanding(FileBytes(SavedFile(hg))));
        return 0;
    };
    EndOfHand(g);
    ASSERT_EQ(seen.size(), 3U);  // the rise, the hand, the totals
    for (const auto& standing : seen) {
        ASSERT_TRUE(standing.has_value());
        EXPECT_EQ(Fields(*standing), std::tuple(std::int16_t(1030), std::int16_t(1000),
                                                std::int16_t(1250), ThePlayer, 4, g.NextDealSeed));
    }
    EXPECT_NE(g.NextDealSeed, before) << "a fresh seed for the next hand";
    // A target changed in the menu goes with the next save.
    AtHandEnd(g, 700, 650, 10, 0);
    g.TargetScore = 750;
    seen.clear();
    EndOfHand(g);
    EXPECT_EQ(seen.at(0)->TargetScore, 750);
    // A game won and answered: kept until the answer, then gone.
    AtHandEnd(g, 1000, 300, 100, 0);
    seen.clear();
    EXPECT_THROW(EndOfHand(g), GameAbandoned);
    EXPECT_TRUE(seen.at(0).has_value());
    EXPECT_FALSE(std::filesystem::exists(SavedFile(hg)));
}

// The file byte for byte, and back at the highest figures. A game against
// the Expert ends its file in one more line; one without it, as every file
// before had, is the Classic robot's. Taken up, the game keeps its robot,
// and the menu's mark and Robot.dat follow it.
TEST(SavedGame, AGameTakenUpKeepsItsRobotAndAnOldFileIsTheClassicRobots) {
    const std::string expertGame = kMidGameText + "robot expert\n";
    GameStanding expert = kMidGame;
    expert.Robot = RobotKind::Expert;
    EXPECT_EQ(FormatStanding(kMidGame) + FormatStanding(expert), kMidGameText + expertGame);
    const GameStanding highest{32767, 0, 1000, 1, 255, ~0ULL};
    EXPECT_EQ(Fields(ParseStanding(FormatStanding(highest)).value()), Fields(highest));
    for (const std::string& damaged :
         {kMidGameText + "robot classic\n", expertGame + "robot expert\n",
          kMidGameText + "robot Expert\n", kMidGameText + "robot expert"}) {
        EXPECT_FALSE(ParseStanding(damaged).has_value()) << damaged;
    }
    for (const auto& [saved, chosen, robot] :
         {std::tuple(expertGame, RobotKind::Classic, RobotKind::Expert),
          std::tuple(kMidGameText, RobotKind::Expert, RobotKind::Classic)}) {
        HeadlessGame hg;
        std::ofstream(hg.folder / kRobotFileName, std::ios::binary)
            << FormatRobotRecord({chosen, {0, 4, 6}});
        NewGameWith(hg, saved);
        EXPECT_EQ(Offers(hg), 1);
        EXPECT_EQ(std::tuple(hg.game.Robot, hg.game.ChosenRobot, hg.table.CheckedRobot()),
                  std::tuple(robot, robot, robot));
        EXPECT_EQ(FileBytes(hg.folder / kRobotFileName), FormatRobotRecord({robot, {0, 4, 6}}));
    }
}

// A run with a saved game in the folder, that can no longer be written over:
// a standing given up must go even when the new game's own save fails. The
// first New Game is scripted; a box is answered with the button named
// `press`, else the first; in the first hand of the game taken up, `then`
// is clicked.
struct OfferCase {
    const char* press;
    std::optional<TableEventKind> then;
    bool kept;
};

TEST(SavedGame, NoAtTheOfferAndYesNewGameDropItExitAndCloseKeepItAndOnlyTheFirstNewGameOffers) {
    const OfferCase cases[] = {{"New Game", std::nullopt, false},
                               {"Yes New Game", TableEventKind::MenuNewGame, false},
                               {"Yes Exit", TableEventKind::MenuExit, true},
                               {"Yes Exit", TableEventKind::CloseBox, true}};
    for (const OfferCase& c : cases) {
        SCOPED_TRACE(std::string(c.press) + (c.then ? " after a click" : ""));
        HeadlessGame hg;
        std::ofstream(SavedFile(hg), std::ios::binary) << kMidGameText;
        std::filesystem::create_directory(SavedFile(hg).string() + ".tmp");
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.table.answerDeluxe = [&](const MessageRecord& m) {
            return int(std::ranges::find(m.buttons, c.press) - m.buttons.begin()) % 3;
        };
        bool clicked = !c.then;
        hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
            if (!g.RoundOneOn || clicked) return std::nullopt;
            clicked = true;
            return TableEvent{*c.then};
        };
        hg.platform.stopWhen = [&](const Game& g) { return clicked && g.RoundOneOn; };
        EXPECT_EQ(hg.Run(), !c.kept) << "a game from nothing, or the program ends";
        EXPECT_TRUE(clicked);
        ASSERT_EQ(Offers(hg), 1);
        EXPECT_EQ(hg.table.Messages().front().text,
                  "Player Your last game stands at 430 against 610 with target score 1250. "
                  "Carry on with it?");
        EXPECT_EQ(FileBytes(SavedFile(hg)), c.kept ? kMidGameText : "");
        // Left in the first hand taken up, or a game from nothing.
        EXPECT_EQ(std::tuple(+hg.game.PlayerTotal, +hg.game.HandNumber),
                  c.kept ? std::tuple(430, 4) : std::tuple(0, 1));
        EXPECT_FALSE(std::filesystem::exists(SavedFile(hg).string() + ".unreadable"));
    }
}

}  // namespace
}  // namespace trickhaven
