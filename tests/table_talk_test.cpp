// What a screen reader is told of play: each step once and short, in the
// game's own words, held while the robot's side runs and joined into one
// text when the player is awaited, at most 120 characters a trick as a
// screen reader speaks them.
#include "game/table_talk.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <regex>
#include <tuple>

#include "headless/headless_game.h"
#include "headless/player_policy.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

int Count(const std::string& text, const std::string& pattern) {
    const std::regex found(pattern);
    return static_cast<int>(
        std::distance(std::sregex_iterator(text.begin(), text.end(), found), {}));
}

std::string Escaped(const std::string& text) {
    return std::regex_replace(text, std::regex(R"([.?*+()\[\]^$|\\{}])"), R"(\$&)");
}

using Step = std::function<void(TableTalk&, const Game&)>;

Step Hear(PlayLogEvent event) {
    return [event](TableTalk& talk, const Game& g) { talk.Hear(g, event); };
}

Step Say(std::string text) {
    return [text](TableTalk& talk, const Game&) { talk.Commentary(text); };
}

// A screen reader says "notification " before each text it is given.
constexpr int kNotificationWord = 13;

TEST(TableTalk, TellsEachThingOnceShortAndJoinsAllUntilThePlayerIsAwaited) {
    // What happens, round by round, with whether the game then waits for the
    // player; and what is spoken at the end of each round.
    using Round = std::pair<std::vector<Step>, bool>;
    using Row = std::tuple<const char*, std::vector<Round>, std::vector<std::string>>;
    for (const auto& [what, rounds, spoken] : std::vector<Row>{
             {"the robot's card, then its commentary",
              {{{Hear(CardPlayed(TheRobot, AS)), Say("Lorinda has played Ace of Spades")}, true}},
              {"Lorinda: Ace of Spades."}},
             {"held while the robot plays; its commentary gives way to the card",
              {{{Say("Lorinda plays Ace of Spades")}, false},
               {{Hear(CardPlayed(TheRobot, AS)), Say("Ada your lead, please click card to play")},
                true}},
              {"", "Lorinda: Ace of Spades."}},
             {"the player's own card and the prompts are not told; the meld offer is asked",
              {{{Say("Ada please click card you wish to play."), Hear(CardPlayed(ThePlayer, KH)),
                 Say("Ada is playing King of Hearts"), Hear(CardPlayed(TheRobot, NH)),
                 Say("Lorinda has played Nine of Hearts"), Hear(TrickTaken(ThePlayer, 4)),
                 Say("Ada click Meld to make or Cancel to receive card.")},
                true},
               {{Say(" Click a Meld to make or click Cancel to receive a card")}, true}},
              {"Lorinda: Nine of Hearts. Ada's trick, 4. Meld?", "Meld?"}},
             {"a trick score of 21 is not the 2 told",
              {{{Hear(TrickTaken(TheRobot, 2)), Say("Lorinda 's trick score is 21"),
                 Say("Lorinda 's trick score is 2")},
                true}},
              {"Lorinda's trick, 2. Lorinda 's trick score is 21."}},
             {"the same commentary twice is said once",
              {{{Say("Hearts are Trumps")}, true}, {{Say("Hearts are Trumps")}, true}},
              {"Hearts are Trumps.", ""}},
             {"draws: the player's by name, the robot's hidden but for the up card",
              {{{Hear(CardDrawn(ThePlayer, KH)), Hear(CardDrawn(TheRobot, AS)),
                 Hear(CardDrawn(TheRobot, Second(NH)))},
                true}},
              {"Ada draws King of Hearts. Lorinda draws. Lorinda draws Nine of Hearts."}},
             {"melds with their points, the commentary's own not repeated",
              {{{Hear(MeldMade(TheRobot, "marriage", 0, Hearts, 40)),
                 Hear(MeldMade(ThePlayer, "fours", Queen, 0, 60)),
                 Say("Ada scores 60 for 4 Queens"), Say("Adascores for run 150"),
                 Hear(MeldMade(ThePlayer, "run", 0, 0, 150))},
                true}},
              {"Lorinda melds a marriage in Hearts, 40. Ada melds four Queens, 60. Ada melds a "
               "run, 150."}},
             {"a message opening tells what was held, and leaves its own text to the box",
              {{{Hear(CardPlayed(TheRobot, AS)),
                 [](TableTalk&talk, const Game&) { talk.MessageOpens(); }},
                false}},
              {"Lorinda: Ace of Spades."}},
         }) {
        SCOPED_TRACE(what);
        RoundOneTable table;
        TableTalk talk;
        std::vector<std::string> heard;
        for (const auto& [steps, awaited] : rounds) {
            for (const Step& step : steps) step(talk, table.g);
            table.g.PlayerMayPlay = awaited;
            heard.push_back(talk.TakeSpoken(table.g));
            if (!heard.back().empty()) {
                EXPECT_EQ(talk.LastSpoken(), heard.back());
            }
        }
        EXPECT_EQ(heard, spoken);
    }
}

TEST(TableTalk, WholeHandsAreToldAtMostAHundredAndTwentyCharactersATrick) {
    for (const std::uint64_t seed : {2U, 7U, 19U, 31U}) {
        SCOPED_TRACE(seed);
        HeadlessGame hg(seed);
        TableTalk talk;
        PlayerPolicy player(PolicyKind::Greedy, seed);
        // What must be heard, and how often.
        std::map<std::string, int> expected;
        bool handOver = false;
        hg.game.onPlay = [&](const Game& g, const PlayLogEvent& e) {
            const int who = e.kind == PlayLogKind::Trick ? e.winner : e.who;
            const std::string side = who == ThePlayer ? "Player" : "Lorinda";
            const std::string points = std::to_string(e.points);
            switch (e.kind) {
                case PlayLogKind::Card:
                    if (who == TheRobot) ++expected["Lorinda: " + Card(g, e.card).Name + "\\."];
                    break;
                case PlayLogKind::Draw:
                    ++expected[who == TheRobot ? "Lorinda draws"
                                               : "Player draws " + Card(g, e.card).Name + "\\."];
                    break;
                case PlayLogKind::Trick:
                    ++expected[side + "'s trick, " + points + "\\."];
                    break;
                case PlayLogKind::Meld:
                    ++expected[side + " melds [^.,]*, " + points + "\\."];
                    break;
                case PlayLogKind::HandEnd:
                    handOver = true;
                    ++expected[Escaped(
                        "Hand over: Player " +
                        std::to_string(g.PlayerTotalMelds + g.PlayerTotalTricks) + ", Lorinda " +
                        std::to_string(g.OpponentTotalMelds + g.OpponentTotalTricks) +
                        ". Totals: Player " + std::to_string(g.PlayerTotal) + ", Lorinda " +
                        std::to_string(g.OpponentTotal) + ".")];
                    break;
                default:
                    break;
            }
            talk.Hear(g, e);
        };
        // Hooked as the window hooks it: the commentary and the trumps, the
        // messages, and what is due taken whenever events are served.
        hg.table.onPanelText = [&](int panel, const std::string& text) {
            if (panel <= 2) talk.Commentary(text);
        };
        hg.table.answerDeluxe = [&](const MessageRecord& message) {
            expected[Escaped(message.text)] += 0;  // read from the box, never told
            talk.MessageOpens();
            return player.Answer(message);
        };
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [&](Game& g) { return player.Next(g); };
        std::string spoken;
        long characters = 0;
        hg.platform.stopWhen = [&](const Game& g) {
            const std::string notice = talk.TakeSpoken(g);
            if (!notice.empty()) {
                spoken += notice + "\n";
                characters += kNotificationWord + static_cast<long>(notice.size());
            }
            return (handOver && g.TrickCount == 0) || hg.platform.eventsServed > 20000;
        };
        ASSERT_TRUE(hg.Run());
        ASSERT_TRUE(handOver) << "the hand was played out";
        ASSERT_EQ(hg.game.GameSpeed, 100);
        for (const auto& [pattern, times] : expected) {
            EXPECT_EQ(Count(spoken, pattern), times) << pattern;
        }
        const double perTrick = static_cast<double>(characters) / 24;
        RecordProperty("characters_per_trick_seed_" + std::to_string(seed),
                       std::to_string(perTrick));
        EXPECT_LE(perTrick, 120) << spoken;
    }
}

}  // namespace
}  // namespace trickhaven
