// A game in progress outlives the program: the standing saved at each
// game's start and hand's end, offered back at the first New Game of the
// next run, dealt on from its seed, and dropped when the game is over.
#include "data/saved_game.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <random>

#include "game/session.h"
#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "round_one/game_end.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

const std::string kTitle = "Saved Game";
const GameStanding kMidGame{430, 610, 1250, 2, 3, 0x0123456789abcdefULL};
const std::string kMidGameText =
    "trickhaven saved game 1\nplayer 430\nrobot 610\ntarget 1250\ndealer 2\nhands 3\n"
    "seed 0123456789abcdef\n";

void WriteRaw(const std::filesystem::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}

std::filesystem::path SavedFile(const HeadlessGame& hg) {
    return hg.folder / kSavedGameName;
}

std::optional<GameStanding> Saved(const HeadlessGame& hg) {
    return ParseStanding(FileBytes(SavedFile(hg)));
}

auto Fields(const GameStanding& s) {
    return std::tuple(s.PlayerTotal, s.OpponentTotal, s.TargetScore, s.NextDealer, +s.HandsPlayed,
                      s.DealSeed);
}

int Offers(const HeadlessGame& hg) {
    int offers = 0;
    for (const MessageRecord& m : hg.table.Messages()) offers += m.title == kTitle;
    return offers;
}

// The deal on the table once Round One is on: where every card lies, the up
// card, the dealer and the game's figures.
struct DealSeen {
    std::array<int, CardCount + 1> places{};
    int upCard = 0, dealer = 0, hand = 0, player = 0, robot = 0, target = 0;
    std::string title;
    bool operator==(const DealSeen&) const = default;
};

DealSeen SeeDeal(const HeadlessGame& hg) {
    const Game& g = hg.game;
    DealSeen seen;
    for (int card = 1; card <= CardCount; ++card) {
        seen.places.at(static_cast<std::size_t>(card)) = Card(g, card).Place;
    }
    seen.upCard = g.UpCard;
    seen.dealer = g.Dealer;
    seen.hand = g.HandNumber;
    seen.player = g.PlayerTotal;
    seen.robot = g.OpponentTotal;
    seen.target = g.TargetScore;
    seen.title = hg.table.Caption(TableLabel::LblTotalScoreP) + "/" +
                 hg.table.Caption(TableLabel::LblTotScoreC);
    return seen;
}

TEST(SavedGame, TheFileByteForByteAndBack) {
    EXPECT_EQ(FormatStanding(kMidGame), kMidGameText);
    const auto back = ParseStanding(kMidGameText);
    ASSERT_TRUE(back.has_value());
    EXPECT_EQ(Fields(*back), Fields(kMidGame));
    const GameStanding highest{32767, 0, 1000, 1, 255, ~0ULL};
    ASSERT_TRUE(ParseStanding(FormatStanding(highest)).has_value());
    EXPECT_EQ(Fields(*ParseStanding(FormatStanding(highest))), Fields(highest));
}

// Each damaged form of the file, as a change of the mid-game text.
std::vector<std::pair<std::string, std::string>> DamagedForms() {
    const auto with = [](const std::string& from, const std::string& to) {
        std::string text = kMidGameText;
        text.replace(text.find(from), from.size(), to);
        return text;
    };
    return {
        {"empty", ""},
        {"cut before the line end", kMidGameText.substr(0, kMidGameText.size() - 1)},
        {"cut in the middle", kMidGameText.substr(0, 40)},
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
        {"a third dealer", with("dealer 2", "dealer 3")},
        {"hands beyond the counter", with("hands 3", "hands 256")},
        {"points before the first hand",
         with("target 1250\ndealer 2\nhands 3", "target 1000\ndealer 2\nhands 0")},
        {"a short seed", with("0123456789abcdef", "0123456789abcde")},
        {"a seed in capitals", with("0123456789abcdef", "0123456789ABCDEF")},
        {"a seed that is no number", with("0123456789abcdef", "0123456789abcdeg")},
    };
}

TEST(SavedGame, EveryDamagedFormStartsANormalGameAndKeepsItsBytes) {
    for (const auto& [form, bytes] : DamagedForms()) {
        SCOPED_TRACE(form);
        EXPECT_FALSE(ParseStanding(bytes).has_value());
        HeadlessGame hg;
        WriteRaw(SavedFile(hg), bytes);
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn; };
        ASSERT_TRUE(hg.Run());
        EXPECT_EQ(Offers(hg), 0);
        const DealSeen seen = SeeDeal(hg);
        EXPECT_EQ(std::tuple(seen.hand, seen.player, seen.robot, seen.target, seen.title),
                  std::tuple(1, 0, 0, 1000, std::string("0/0")));
        EXPECT_EQ(FileBytes(hg.folder / (std::string(kSavedGameName) + ".unreadable")), bytes);
        const auto fresh = Saved(hg);
        ASSERT_TRUE(fresh.has_value()) << "the new game saves its own start";
        EXPECT_EQ(fresh->HandsPlayed, 0);
    }
}

// Plays a whole game at speed 100 and notes every deal, with the saved
// file as it stood when the deal began.
struct PlayedThrough {
    std::vector<DealSeen> deals;
    std::vector<std::string> files;
    std::vector<std::vector<int>> draws;
};

PlayedThrough PlayThrough(std::uint64_t seed) {
    PlayedThrough played;
    HeadlessGame hg(seed);
    PlayerPolicy player(PolicyKind::First, seed);
    hg.platform.script.push_back({TableEventKind::MenuNewGame});
    hg.platform.policy = [&](Game& g) { return player.Next(g); };
    hg.table.answerDeluxe = [&](const MessageRecord& m) {
        return m.title == "Play again?" ? 1 : player.Answer(m);
    };
    hg.game.onPlay = [&](const Game&, const PlayLogEvent& e) {
        if (e.kind == PlayLogKind::Draw && !played.draws.empty()) {
            played.draws.back().push_back(e.card);
        }
    };
    hg.platform.stopWhen = [&](const Game& g) {
        if (g.RoundOneOn && g.HandNumber > played.deals.size()) {
            played.deals.push_back(SeeDeal(hg));
            played.files.push_back(FileBytes(SavedFile(hg)));
            played.draws.emplace_back();
        }
        return false;
    };
    EXPECT_FALSE(hg.Run()) << "the game ends with its Exit";
    EXPECT_FALSE(std::filesystem::exists(SavedFile(hg))) << "a finished game leaves no save";
    return played;
}

TEST(SavedGame, AGameLeftAfterAnyHandGoesOnWithTheSameFiguresDealAndDraws) {
    std::size_t resumed = 0;
    for (const std::uint64_t seed : {5U, 6U}) {
        const PlayedThrough through = PlayThrough(seed);
        ASSERT_GE(through.deals.size(), 3U);
        for (std::size_t hand = 0; hand < through.deals.size(); ++hand) {
            SCOPED_TRACE(std::to_string(seed) + " hand " + std::to_string(hand + 1));
            // Another run of the program: another clock and generator, and
            // another player, who draws the same cards all the same.
            HeadlessGame hg(seed * 1000 + hand);
            WriteRaw(SavedFile(hg), through.files.at(hand));
            PlayerPolicy player(PolicyKind::Random, seed + hand);
            std::vector<int> draws;
            hg.platform.script.push_back({TableEventKind::MenuNewGame});
            hg.platform.policy = [&](Game& g) { return player.Next(g); };
            hg.table.answerDeluxe = [&](const MessageRecord& m) {
                return m.title == kTitle ? 0 : player.Answer(m);
            };
            std::optional<DealSeen> dealt;
            bool over = false;
            hg.game.onPlay = [&](const Game&, const PlayLogEvent& e) {
                if (e.kind == PlayLogKind::Draw) draws.push_back(e.card);
                over = over || e.kind == PlayLogKind::GameEnd;
            };
            hg.platform.stopWhen = [&](const Game& g) {
                if (g.RoundOneOn && !dealt) dealt = SeeDeal(hg);
                return dealt && (g.RoundTwoOn || over);
            };
            hg.Run();
            ASSERT_TRUE(dealt.has_value());
            EXPECT_TRUE(*dealt == through.deals.at(hand));
            EXPECT_EQ(std::tuple(dealt->player, dealt->robot, dealt->target, dealt->dealer),
                      std::tuple(through.deals[hand].player, through.deals[hand].robot,
                                 through.deals[hand].target, through.deals[hand].dealer));
            const std::vector<int>& before = through.draws.at(hand);
            // The last two cards go by the choice after trick 12; the 22
            // draws before it are the stock's own order.
            const std::size_t both = std::min({before.size(), draws.size(), std::size_t{22}});
            EXPECT_GT(both, 0U);
            EXPECT_EQ(std::vector<int>(draws.begin(), draws.begin() + long(both)),
                      std::vector<int>(before.begin(), before.begin() + long(both)));
            ASSERT_EQ(Offers(hg), 1);
            const MessageRecord& offer = hg.table.Messages().front();
            EXPECT_EQ(
                std::tuple(offer.text, offer.buttons[0], offer.buttons[1], offer.icon),
                std::tuple("Player Your last game stands at " + std::to_string(dealt->player) +
                               " against " + std::to_string(dealt->robot) + " with target score " +
                               std::to_string(dealt->target) + ". Carry on with it?",
                           "Carry On", "New Game", 2));
            ++resumed;
        }
    }
    EXPECT_GE(resumed, 6U);
}

TEST(SavedGame, EachHandEndAndEachRiseSavesWithTheNextDealsSeed) {
    // Scores that end a hand with both over the target: it rises, and the
    // saved file holds the rise while its message is up.
    HeadlessGame hg;
    Game& g = hg.game;
    ClearTable(g);
    g.GameOn = true;
    g.RoundTwoOn = true;
    g.Dealer = TheRobot;
    g.HandNumber = 4;
    g.TargetScore = 1000;
    g.PlayerTotal = 900;
    g.OpponentTotal = 880;
    g.PlayerTotalTricks = 130;
    g.OpponentTotalTricks = 120;
    const std::uint64_t before = g.NextDealSeed;
    std::vector<std::optional<GameStanding>> seen;
    hg.table.answerDeluxe = [&](const MessageRecord&) {
        seen.push_back(Saved(hg));
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
    g.TargetScore = 750;
    g.PlayerTotal = 700;
    g.OpponentTotal = 650;
    g.PlayerTotalTricks = g.OpponentTotalTricks = 0;
    seen.clear();
    EndOfHand(g);
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front()->TargetScore, 750);
}

// One scripted run on a folder with a saved game: New Game first; a box
// is answered with the button of the given captions, else the first.
struct SavedRun {
    SavedRun(const std::string& saved, std::vector<std::string> captions)
        : press(std::move(captions)) {
        WriteRaw(SavedFile(hg), saved);
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.table.answerDeluxe = [this](const MessageRecord& m) {
            for (int i = 0; i < 3; ++i) {
                for (const std::string& caption : press) {
                    if (m.buttons.at(static_cast<std::size_t>(i)) == caption) return i;
                }
            }
            return 0;
        };
    }
    HeadlessGame hg;
    std::vector<std::string> press;
};

TEST(SavedGame, YesNewGameAndNoAtTheOfferDropItExitKeepsItAndOnlyTheFirstNewGameOffers) {
    // A new game saves its own start at once; with the folder refusing
    // writes, the old standing must be gone all the same.
    const auto givenUp = [](const HeadlessGame& hg, bool refused) {
        if (refused) return !std::filesystem::exists(SavedFile(hg));
        const auto fresh = Saved(hg);
        return fresh && fresh->PlayerTotal == 0 && fresh->HandsPlayed == 0;
    };
    for (const bool refused : {false, true}) {
        SCOPED_TRACE(refused);
        {  // No: a game from nothing, and the old standing is gone.
            SavedRun run(kMidGameText, {"New Game"});
            if (refused) std::filesystem::create_directory(SavedFile(run.hg).string() + ".tmp");
            run.hg.platform.stopWhen = [](const Game& g) { return g.RoundOneOn; };
            ASSERT_TRUE(run.hg.Run());
            EXPECT_EQ(Offers(run.hg), 1);
            EXPECT_EQ(std::tuple(run.hg.game.PlayerTotal, run.hg.game.TargetScore,
                                 +run.hg.game.HandNumber),
                      std::tuple(std::int16_t(0), std::int16_t(1000), 1));
            EXPECT_TRUE(givenUp(run.hg, refused));
            EXPECT_FALSE(std::filesystem::exists(SavedFile(run.hg).string() + ".unreadable"));
        }
        {  // Yes, then "Yes New Game" in the first hand: no second offer,
           // and the standing taken up is given up.
            SavedRun run(kMidGameText, {"Yes New Game"});
            bool asked = false;
            run.hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
                if (!g.RoundOneOn || asked) return std::nullopt;
                asked = true;
                EXPECT_EQ(
                    std::tuple(g.PlayerTotal, g.OpponentTotal, g.TargetScore, +g.HandNumber,
                               g.Dealer),
                    std::tuple(std::int16_t(430), std::int16_t(610), std::int16_t(1250), 4, 2));
                EXPECT_EQ(FileBytes(SavedFile(run.hg)), kMidGameText);
                if (refused) {
                    std::filesystem::create_directory(SavedFile(run.hg).string() + ".tmp");
                }
                return TableEvent{TableEventKind::MenuNewGame};
            };
            run.hg.platform.stopWhen = [&](const Game& g) { return asked && g.RoundOneOn; };
            ASSERT_TRUE(run.hg.Run());
            EXPECT_EQ(Offers(run.hg), 1);
            EXPECT_TRUE(givenUp(run.hg, refused));
        }
    }
    // Leaving by the menu, or by the close box, keeps the file as it is.
    for (const TableEventKind leave : {TableEventKind::MenuExit, TableEventKind::CloseBox}) {
        SavedRun run(kMidGameText, {"Yes Exit"});
        bool left = false;
        run.hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
            if (!g.RoundOneOn || left) return std::nullopt;
            left = true;
            return TableEvent{leave};
        };
        EXPECT_FALSE(run.hg.Run()) << "the program ends";
        EXPECT_TRUE(left);
        EXPECT_EQ(FileBytes(SavedFile(run.hg)), kMidGameText);
    }
}

TEST(SavedGame, AGameOverAndAnsweredLeavesNoSaveWhateverTheAnswer) {
    for (const int answer : {0, 1}) {
        HeadlessGame hg;
        Game& g = hg.game;
        ClearTable(g);
        g.GameOn = true;
        g.RoundTwoOn = true;
        g.TargetScore = 1000;
        g.PlayerTotal = 1100;
        g.OpponentTotal = 300;
        g.HandNumber = 5;
        SaveStanding(g);
        ASSERT_TRUE(Saved(hg).has_value());
        std::optional<GameStanding> whileAsked;
        hg.table.answerDeluxe = [&](const MessageRecord&) {
            whileAsked = Saved(hg);
            return answer;
        };
        EXPECT_THROW(CheckTarget(g), GameAbandoned);
        EXPECT_TRUE(whileAsked.has_value()) << "kept until the question is answered";
        EXPECT_FALSE(std::filesystem::exists(SavedFile(hg)));
    }
}

// A child saves two standings in turn, as fast as it can, until it is
// killed; it works on its own copy of the parent's game, and says so on the
// pipe once its first save is whole.
[[noreturn]] void SaveForever(Game& g, int saved) {
    for (long round = 0;; ++round) {
        g.PlayerTotal = round % 2 == 0 ? 111 : 222;
        g.HandNumber = round % 2 == 0 ? 1 : 2;
        SaveStanding(g);
        if (round == 0 && ::write(saved, "s", 1) != 1) ::_exit(1);
    }
}

TEST(SavedGame, AKillInTheMiddleOfSavingLeavesAStandingThatReadsWhole) {
    HeadlessGame hg;
    hg.game.TargetScore = 1000;
    SaveStanding(hg.game);
    std::mt19937 random(20261124);
    std::map<int, int> seen;
    for (int attempt = 0; attempt < 16; ++attempt) {
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) SaveForever(hg.game, pipe[1]);
        char said = 0;
        ASSERT_EQ(::read(pipe[0], &said, 1), 1);
        ::usleep(random() % 5000);
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ::close(pipe[0]);
        ::close(pipe[1]);
        const auto standing = Saved(hg);
        ASSERT_TRUE(standing.has_value()) << "attempt " << attempt;
        ++seen[standing->PlayerTotal];
    }
    // Once the first save was whole, every kill leaves one of the two.
    EXPECT_EQ(seen[111] + seen[222], 16);
}

}  // namespace
}  // namespace trickhaven
