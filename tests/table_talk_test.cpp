// What a screen reader is told of play: each step once, in the game's own
// words where the commentary has them, joined when it happens at once.
#include "game/table_talk.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <numeric>
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

TEST(TableTalk, TellsEachThingOnceAndJoinsWhatHappensAtOnce) {
    const int AS = CardIndex(Ace, Spades), KH = CardIndex(King, Hearts);
    using Steps = std::function<void(TableTalk&, const Game&)>;
    // What happens between two rounds of events, each list one round; what
    // is spoken at each round.
    using Row = std::tuple<const char*, std::vector<Steps>, std::vector<std::string>>;
    const auto robotPlays = [&](TableTalk& t, const Game& g) {
        t.Hear(g, CardPlayed(TheRobot, AS));
    };
    const auto say = [](std::string text) {
        return [text](TableTalk& t, const Game&) { t.Commentary(text); };
    };
    for (const auto& [what, rounds, spoken] : std::vector<Row>{
             {"the robot's card, then its commentary",
              {robotPlays, say("Lorinda has played Ace of Spades")},
              {"Lorinda plays the Ace of Spades.", ""}},
             {"the commentary first, then the card",
              {say("Lorinda plays Ace of Spades"), robotPlays},
              {"Lorinda plays Ace of Spades.", ""}},
             {"the player's own card is the commentary's",
              {[&](TableTalk&t, const Game&g) {
                  t.Hear(g, CardPlayed(ThePlayer, KH));
                  t.Commentary("Ada is playing King of Hearts");
              }},
              {"Ada is playing King of Hearts."}},
             {"a trick and a prompt at once",
              {[](TableTalk&t, const Game&g) {
                  t.Hear(g, TrickTaken(ThePlayer, 21));
                  t.Commentary("Ada click Meld to make or Cancel to receive card.");
              }},
              {"Ada takes the trick for 21 points. Ada click Meld to make or Cancel to receive "
               "card."}},
             {"a trick score of 21 is not the 2 told",
              {[](TableTalk&t, const Game&g) {
                  t.Hear(g, TrickTaken(TheRobot, 2));
                  t.Commentary("Lorinda 's trick score is 21");
                  t.Commentary("Lorinda 's trick score is 2");
              }},
              {"Lorinda takes the trick for 2 points. Lorinda 's trick score is 21."}},
             {"the same commentary twice is said once",
              {say("Ada your lead, please click card to play"),
               say("Ada your lead, please click card to play")},
              {"Ada your lead, please click card to play.", ""}},
             {"draws: the player's by name, the robot's hidden but for the up card",
              {[&](TableTalk&t, const Game&g) {
                  t.Hear(g, CardDrawn(ThePlayer, KH));
                  t.Hear(g, CardDrawn(TheRobot, AS));
                  t.Hear(g, CardDrawn(TheRobot, g.UpCard));
              }},
              {"Ada draws the King of Hearts. Lorinda draws. Lorinda draws the Nine of Hearts."}},
             {"melds with their points, the commentary's own not repeated",
              {[](TableTalk&t, const Game&g) {
                  t.Hear(g, MeldMade(TheRobot, "marriage", 0, Hearts, 40));
                  t.Hear(g, MeldMade(ThePlayer, "fours", Queen, 0, 60));
                  t.Commentary("Ada scores 60 for 4 Queens");
                  t.Hear(g, MeldMade(ThePlayer, "run", 0, 0, 150));
              }},
              {"Lorinda melds a marriage in Hearts for 40 points. Ada melds four Queens for 60 "
               "points. Ada melds a run for 150 points."}},
             {"a message by its title and text",
              {[](TableTalk&t, const Game&) { t.MessageOpens("Hand Won", "Ada Game not over"); }},
              {"Hand Won. Ada Game not over."}},
         }) {
        SCOPED_TRACE(what);
        RoundOneTable table;
        TableTalk talk;
        int news = 0;
        talk.onNews = [&news] { ++news; };
        std::vector<std::string> heard;
        int rounds_with_news = 0;
        for (const Steps& round : rounds) {
            const int before = news;
            round(talk, table.g);
            rounds_with_news += news > before ? 1 : 0;
            heard.push_back(talk.TakeSpoken());
        }
        EXPECT_EQ(heard, spoken);
        // One call for each round that had something to say.
        EXPECT_EQ(news, rounds_with_news);
        EXPECT_EQ(news,
                  static_cast<int>(std::count_if(heard.begin(), heard.end(),
                                                 [](const std::string& s) { return !s.empty(); })));
    }
}

TEST(TableTalk, AWholeHandAtMediumSpeedIsToldStepByStep) {
    for (const std::uint64_t seed : {2U, 7U, 19U}) {
        SCOPED_TRACE(seed);
        HeadlessGame hg(seed);
        TableTalk talk;
        PlayerPolicy player(PolicyKind::Greedy, seed);
        std::vector<PlayLogEvent> events;
        std::string handEnd;
        std::map<std::string, int> messages;
        hg.game.onPlay = [&](const Game& g, const PlayLogEvent& event) {
            events.push_back(event);
            if (event.kind == PlayLogKind::HandEnd) {
                handEnd = "End of the hand: Player " +
                          std::to_string(g.PlayerTotalMelds + g.PlayerTotalTricks) + ", Lorinda " +
                          std::to_string(g.OpponentTotalMelds + g.OpponentTotalTricks) +
                          ". Total scores: Player " + std::to_string(g.PlayerTotal) + ", Lorinda " +
                          std::to_string(g.OpponentTotal) + ".";
            }
            talk.Hear(g, event);
        };
        hg.table.onPanelText = [&](int panel, const std::string& text) {
            if (panel <= 2) talk.Commentary(text);
        };
        hg.table.answerDeluxe = [&](const MessageRecord& message) {
            ++messages[Escaped(message.title) + "\\.? " + Escaped(message.text)];
            talk.MessageOpens(message.title, message.text);
            return player.Answer(message);
        };
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [&](Game& g) { return player.Next(g); };
        std::string spoken;
        hg.platform.stopWhen = [&](const Game& g) {
            const std::string round = talk.TakeSpoken();
            spoken += round.empty() ? "" : round + "\n";
            return (!handEnd.empty() && g.TrickCount == 0) || hg.platform.eventsServed > 20000;
        };
        ASSERT_TRUE(hg.Run());
        ASSERT_FALSE(handEnd.empty()) << "the hand was played out";
        ASSERT_EQ(hg.game.GameSpeed, 100);

        std::map<std::string, int> robotCards, playerDraws, tricks, melds;
        int robotDraws = 0;
        for (const PlayLogEvent& e : events) {
            const std::string side = e.who == ThePlayer ? "Player" : "Lorinda";
            switch (e.kind) {
                case PlayLogKind::Card:
                    if (e.who == TheRobot) ++robotCards[Card(hg.game, e.card).Name];
                    break;
                case PlayLogKind::Draw:
                    if (e.who == ThePlayer) ++playerDraws[Card(hg.game, e.card).Name];
                    robotDraws += e.who == TheRobot ? 1 : 0;
                    break;
                case PlayLogKind::Trick:
                    ++tricks[(e.winner == ThePlayer ? "Player" : "Lorinda") + std::string("|") +
                             std::to_string(e.points)];
                    break;
                case PlayLogKind::Meld:
                    ++melds[side + "|" + std::to_string(e.points)];
                    break;
                default:
                    break;
            }
        }
        ASSERT_EQ(std::accumulate(tricks.begin(), tricks.end(), 0,
                                  [](int sum, const auto& t) { return sum + t.second; }),
                  24);
        for (const auto& [name, times] : robotCards) {
            EXPECT_EQ(Count(spoken, "Lorinda (plays the|plays|has played) " + name), times) << name;
        }
        for (const auto& [name, times] : playerDraws) {
            EXPECT_EQ(Count(spoken, "Player draws the " + name), times) << name;
        }
        EXPECT_EQ(Count(spoken, "Lorinda draws"), robotDraws);
        for (const auto& [trick, times] : tricks) {
            const std::string side = trick.substr(0, trick.find('|'));
            const std::string points = trick.substr(trick.find('|') + 1);
            EXPECT_EQ(Count(spoken, side + " (takes the trick for " + points +
                                        " points?|'s trick score is " + points + ")(\\.|\n| )"),
                      times)
                << trick;
        }
        for (const auto& [meld, times] : melds) {
            const std::string side = meld.substr(0, meld.find('|'));
            const std::string points = meld.substr(meld.find('|') + 1);
            EXPECT_EQ(Count(spoken, "(^|\n|\\. )" + side + " ?(melds [^.]* for " + points +
                                        " points|scores " + points + " |scores for run " + points +
                                        "\\.|melded Dix for " + points + " points)"),
                      times)
                << meld;
        }
        EXPECT_EQ(Count(spoken, Escaped(handEnd)), 1);
        for (const auto& [message, times] : messages) {
            EXPECT_EQ(Count(spoken, message), times) << message;
        }
    }
}

}  // namespace
}  // namespace trickhaven
