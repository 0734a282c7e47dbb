// What a screen reader is told of play: each step once, in the game's own
// words where the commentary has them, joined when it happens at once.
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

TEST(TableTalk, TellsEachThingOnceAndJoinsWhatHappensAtOnce) {
    // What happens, one list for each round of events, and what is spoken
    // at each round.
    using Row = std::tuple<const char*, std::vector<std::vector<Step>>, std::vector<std::string>>;
    for (const auto& [what, rounds, spoken] : std::vector<Row>{
             {"the robot's card, then its commentary",
              {{Hear(CardPlayed(TheRobot, AS))}, {Say("Lorinda has played Ace of Spades")}},
              {"Lorinda plays the Ace of Spades.", ""}},
             {"the commentary first, then the card",
              {{Say("Lorinda plays Ace of Spades")}, {Hear(CardPlayed(TheRobot, AS))}},
              {"Lorinda plays Ace of Spades.", ""}},
             {"the player's own card is the commentary's; a trick and a prompt at once",
              {{Hear(CardPlayed(ThePlayer, KH)), Say("Ada is playing King of Hearts"),
                Hear(TrickTaken(ThePlayer, 21)),
                Say("Ada click Meld to make or Cancel to receive card.")}},
              {"Ada is playing King of Hearts. Ada takes the trick for 21 points. Ada click Meld "
               "to make or Cancel to receive card."}},
             {"a trick score of 21 is not the 2 told",
              {{Hear(TrickTaken(TheRobot, 2)), Say("Lorinda 's trick score is 21"),
                Say("Lorinda 's trick score is 2")}},
              {"Lorinda takes the trick for 2 points. Lorinda 's trick score is 21."}},
             {"the same commentary twice is said once",
              {{Say("Ada your lead, please click card to play")},
               {Say("Ada your lead, please click card to play")}},
              {"Ada your lead, please click card to play.", ""}},
             {"draws: the player's by name, the robot's hidden but for the up card",
              {{Hear(CardDrawn(ThePlayer, KH)), Hear(CardDrawn(TheRobot, AS)),
                Hear(CardDrawn(TheRobot, Second(NH)))}},
              {"Ada draws the King of Hearts. Lorinda draws. Lorinda draws the Nine of Hearts."}},
             {"melds with their points, the commentary's own not repeated",
              {{Hear(MeldMade(TheRobot, "marriage", 0, Hearts, 40)),
                Hear(MeldMade(ThePlayer, "fours", Queen, 0, 60)), Say("Ada scores 60 for 4 Queens"),
                Hear(MeldMade(ThePlayer, "run", 0, 0, 150))}},
              {"Lorinda melds a marriage in Hearts for 40 points. Ada melds four Queens for 60 "
               "points. Ada melds a run for 150 points."}},
             {"a message by its title and text",
              {{[](TableTalk&talk, const Game&) {
                  talk.MessageOpens("Hand Won", "Ada Game not over");
              }}},
              {"Hand Won. Ada Game not over."}},
         }) {
        SCOPED_TRACE(what);
        RoundOneTable table;
        TableTalk talk;
        int news = 0;
        talk.onNews = [&news] { ++news; };
        std::vector<std::string> heard;
        for (const std::vector<Step>& round : rounds) {
            const int before = news;
            for (const Step& step : round) step(talk, table.g);
            heard.push_back(talk.TakeSpoken());
            // The window is called once for a round that has something to say.
            EXPECT_EQ(news - before, heard.back().empty() ? 0 : 1);
        }
        EXPECT_EQ(heard, spoken);
    }
}

TEST(TableTalk, AWholeHandAtMediumSpeedIsToldStepByStep) {
    for (const std::uint64_t seed : {2U, 7U, 19U}) {
        SCOPED_TRACE(seed);
        HeadlessGame hg(seed);
        TableTalk talk;
        PlayerPolicy player(PolicyKind::Greedy, seed);
        // What must be heard, in the commentary's words or the talk's own,
        // and how often.
        std::map<std::string, int> expected;
        bool handOver = false;
        hg.game.onPlay = [&](const Game& g, const PlayLogEvent& e) {
            const int who = e.kind == PlayLogKind::Trick ? e.winner : e.who;
            const std::string side = who == ThePlayer ? "Player" : "Lorinda";
            const std::string points = std::to_string(e.points);
            switch (e.kind) {
                case PlayLogKind::Card:
                    if (who == TheRobot) {
                        ++expected["Lorinda (plays the|plays|has played) " + Card(g, e.card).Name];
                    }
                    break;
                case PlayLogKind::Draw:
                    ++expected[who == TheRobot ? "Lorinda draws"
                                               : "Player draws the " + Card(g, e.card).Name];
                    break;
                case PlayLogKind::Trick:
                    ++expected[side + " (takes the trick for " + points +
                               " points?|'s trick score is " + points + ")(\\.|\n| )"];
                    break;
                case PlayLogKind::Meld:
                    ++expected["(^|\n|\\. )" + side + " ?(melds [^.]* for " + points +
                               " points|scores " + points + " |scores for run " + points +
                               "\\.|melded Dix for " + points + " points)"];
                    break;
                case PlayLogKind::HandEnd:
                    handOver = true;
                    ++expected[Escaped(
                        "End of the hand: Player " +
                        std::to_string(g.PlayerTotalMelds + g.PlayerTotalTricks) + ", Lorinda " +
                        std::to_string(g.OpponentTotalMelds + g.OpponentTotalTricks) +
                        ". Total scores: Player " + std::to_string(g.PlayerTotal) + ", Lorinda " +
                        std::to_string(g.OpponentTotal) + ".")];
                    break;
                default:
                    break;
            }
            talk.Hear(g, e);
        };
        hg.table.onPanelText = [&](int panel, const std::string& text) {
            if (panel <= 2) talk.Commentary(text);
        };
        hg.table.answerDeluxe = [&](const MessageRecord& message) {
            ++expected[Escaped(message.title) + "\\.? " + Escaped(message.text)];
            talk.MessageOpens(message.title, message.text);
            return player.Answer(message);
        };
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [&](Game& g) { return player.Next(g); };
        std::string spoken;
        hg.platform.stopWhen = [&](const Game& g) {
            const std::string round = talk.TakeSpoken();
            spoken += round.empty() ? "" : round + "\n";
            return (handOver && g.TrickCount == 0) || hg.platform.eventsServed > 20000;
        };
        ASSERT_TRUE(hg.Run());
        ASSERT_TRUE(handOver) << "the hand was played out";
        ASSERT_EQ(hg.game.GameSpeed, 100);
        for (const auto& [pattern, times] : expected) {
            EXPECT_EQ(Count(spoken, pattern), times) << pattern;
        }
    }
}

}  // namespace
}  // namespace trickhaven
