// The tricks of Round Two, on tables laid by hand and in whole hands played
// on the headless table.
#include "round_two/round_two.h"

#include <gtest/gtest.h>

#include <deque>
#include <fstream>

#include "game/session.h"
#include "tests/headless/headless_game.h"
#include "tests/headless/player_policy.h"
#include "tests/table_fixtures.h"

namespace trickhaven {
namespace {

constexpr int AceH = CardIndex(Ace, Hearts);
constexpr int TenH = CardIndex(Ten, Hearts);
constexpr int NineH = CardIndex(Nine, Hearts);
constexpr int NineD = CardIndex(Nine, Diamonds);
constexpr int NineC = CardIndex(Nine, Clubs);
constexpr int JackC = CardIndex(Jack, Clubs);
constexpr int KingC = CardIndex(King, Clubs);
constexpr int KingS = CardIndex(King, Spades);

// The last tricks of a hand, Spades trumps, as Round One leaves them.
void LayLastTricks(Game& g, int leader, const std::vector<int>& player,
                   const std::vector<int>& robot) {
    ClearTable(g);
    g.OpponentName = "Lorinda";
    g.TargetScore = 1000;
    g.GameOn = true;
    g.RoundTwoOn = true;
    g.TrumpSuit = Spades;
    g.Leader = leader;
    g.PlayerMayPlay = leader == ThePlayer;
    g.TrickCount = 24 - static_cast<int>(player.size());
    for (const int card : player) Card(g, card).Place = PlacePlayerHand;
    for (const int card : robot) Card(g, card).Place = PlaceOpponentHand;
}

// The player clicks these cards in turn, each when a card is awaited.
void ClickInTurn(HeadlessGame& hg, std::deque<int> clicks) {
    hg.platform.policy = [clicks](Game& g) mutable -> std::optional<TableEvent> {
        if (clicks.empty() || !CardAwaited(g)) return std::nullopt;
        const int card = clicks.front();
        clicks.pop_front();
        return TableEvent{TableEventKind::CardClick, card};
    };
}

// True when the texts appear in the status panels in this order.
bool PanelsTold(const HeadlessTable& table, const std::vector<std::string>& texts) {
    auto next = texts.begin();
    for (const auto& [panel, text] : table.PanelHistory()) {
        if (next != texts.end() && text == *next) ++next;
    }
    return next == texts.end();
}

std::vector<std::string> Titles(const HeadlessTable& table) {
    std::vector<std::string> titles;
    for (const MessageRecord& m : table.Messages()) titles.push_back(m.title);
    return titles;
}

struct LastTricks {
    const char* what;
    int leader;
    std::vector<int> player, robot;
    std::deque<int> clicks;
    std::vector<std::string> panels;
    int playerTricks, robotTricks;
    std::vector<std::string> titles;
};

TEST(RoundTwo, TricksAreLedAnsweredBookedAndTheHandCloses) {
    const std::vector<LastTricks> cases{
        {"robot leads; equal nines go to the leader",
         TheRobot,
         {TenH, NineD + 1},
         {AceH, NineD},
         {TenH, NineD + 1},
         {"Tricks 23", "Lorinda plays Ace of Hearts", "Player your lead, please click card to play",
          "Lorinda 's trick score is 21", "Tricks 24", "Lorinda plays Nine of Diamonds",
          "Player your lead, please click card to play", "Lorinda 's trick score is 0"},
         0,
         21,
         {"Hand Lost", "Total Scores"}},
        {"player leads and keeps the lead",
         ThePlayer,
         {AceH, NineC},
         {NineH, KingC},
         {AceH, NineC},
         {"Tricks 23", "Player your lead, please click card to play",
          "Lorinda plays Nine of Hearts", "Player 's trick score is 11",
          "Player your turn, please click card to play", "Tricks 24",
          "Player your lead, please click card to play", "Lorinda plays King of Clubs",
          "Lorinda 's trick score is 4"},
         11,
         4,
         {"Hand Won", "Total Scores"}},
        {"a refused Spade on Hearts and a refused Club with a trump in hand keep the turn open",
         TheRobot,
         {TenH, KingS, JackC},
         {AceH, NineD, NineC},
         {KingS, TenH, JackC, KingS, JackC},
         {"Tricks 22", "Lorinda 's trick score is 21", "Tricks 23", "Player 's trick score is 4",
          "Tricks 24", "Player 's trick score is 2"},
         6,
         21,
         {"Must follow suit.", "You have a Trump", "Hand Lost", "Total Scores"}},
    };
    for (const LastTricks& c : cases) {
        SCOPED_TRACE(c.what);
        HeadlessGame hg;
        Game& g = hg.game;
        LayLastTricks(g, c.leader, c.player, c.robot);
        ClickInTurn(hg, c.clicks);
        ContinueRoundTwo(g);
        EXPECT_TRUE(PanelsTold(hg.table, c.panels));
        EXPECT_EQ(g.TrickCount, 24);
        EXPECT_EQ(g.PlayerTotal, c.playerTricks);
        EXPECT_EQ(g.OpponentTotal, c.robotTricks);
        EXPECT_EQ(hg.table.Caption(TableLabel::LblTotTricksP), std::to_string(c.playerTricks));
        EXPECT_EQ(hg.table.Caption(TableLabel::LblTotTricskC), std::to_string(c.robotTricks));
        EXPECT_EQ(Titles(hg.table), c.titles);
        for (int card = 1; card <= CardCount; ++card) {
            EXPECT_NE(Card(g, card).Place, PlacePlayerHand);
            EXPECT_NE(Card(g, card).Place, PlaceOpponentHand);
        }
    }
}

TEST(RoundTwo, TargetWaitsForTheLastTrick) {
    HeadlessGame hg;
    Game& g = hg.game;
    LayLastTricks(g, ThePlayer, {AceH, NineC}, {NineH, KingC});
    g.PlayerTotal = 995;
    ClickInTurn(hg, {AceH, NineC});
    int trickAtTheEnd = 0;
    hg.table.answerDeluxe = [&](const MessageRecord&) {
        trickAtTheEnd = Card(g, KingC).Place == PlacePlayed ? g.TrickCount : 0;
        return 1;
    };
    try {
        ContinueRoundTwo(g);
    } catch (const GameAbandoned&) {
    }
    EXPECT_EQ(trickAtTheEnd, 24);
    EXPECT_EQ(g.Request, SessionRequest::Quit);
    ASSERT_EQ(Titles(hg.table), std::vector<std::string>{"Play again?"});
    EXPECT_NE(hg.table.Messages()[0].text.find(" points 1006 against 4 "), std::string::npos);
}

// What a whole hand leaves at its end, read when "Total Scores" shows.
struct HandRecord {
    bool nineTurnedUp = false;
    int playerTricks = -1, robotTricks = -1;
    int playerTotal = -1, robotTotal = -1;
    int playerMelds = -1, robotMelds = -1;
    std::string totalsText;
};

TEST(WholeHand, TrickPointsAddUpAndJoinTheTotals) {
    for (std::uint64_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        HeadlessGame hg(seed);
        PlayerPolicy player(PolicyKind::First, seed);
        HandRecord hand;
        bool upCardSeen = false;
        hg.platform.script.push_back({TableEventKind::MenuNewGame});
        hg.platform.policy = [&](Game& g) {
            // Read once, at the deal: a dix later makes the Nine the up card.
            if (g.RoundOneOn && !upCardSeen) {
                upCardSeen = true;
                hand.nineTurnedUp = Card(g, g.UpCard).Value == Nine;
            }
            return player.Next(g);
        };
        hg.table.answerDeluxe = [&](const MessageRecord& m) {
            const Game& g = hg.game;
            if (m.title == "Total Scores") {
                hand = {
                    hand.nineTurnedUp, g.PlayerTotalTricks, g.OpponentTotalTricks, g.PlayerTotal,
                    g.OpponentTotal,   g.PlayerTotalMelds,  g.OpponentTotalMelds,  m.text};
            }
            return player.Answer(m);
        };
        hg.platform.stopWhen = [](const Game& g) { return g.HandNumber == 2; };
        ASSERT_TRUE(hg.Run());
        EXPECT_EQ(hand.playerTricks + hand.robotTricks, hand.nineTurnedUp ? 260 : 250);
        EXPECT_EQ(hand.playerTotal, hand.playerMelds + hand.playerTricks);
        EXPECT_EQ(hand.robotTotal, hand.robotMelds + hand.robotTricks);
        EXPECT_EQ(hand.totalsText, "Your total score is " + std::to_string(hand.playerTotal) +
                                       " against " + std::to_string(hand.robotTotal));
        std::vector<std::string> tricks;
        for (int trick = 13; trick <= 24; ++trick)
            tricks.push_back("Tricks " + std::to_string(trick));
        EXPECT_TRUE(PanelsTold(hg.table, tricks));
    }
}

// A short game played out: it ends at "Play again?", "Exit" leaves the
// program, and the stored record counts the game.
TEST(WholeGame, EndsAtTheTargetAndIsRecorded) {
    HeadlessGame hg(3);
    PlayerPolicy player(PolicyKind::First, 3);
    hg.platform.script = {{TableEventKind::MenuNewGame}, {TableEventKind::MenuTarget300}};
    hg.platform.policy = [&](Game& g) { return player.Next(g); };
    hg.table.answerDeluxe = [&](const MessageRecord& m) {
        return m.title == "Play again?" ? 1 : player.Answer(m);
    };
    EXPECT_FALSE(hg.Run());
    const Game& g = hg.game;
    EXPECT_EQ(g.GameStats[1] + g.GameStats[2], 1);
    EXPECT_TRUE(g.PlayerTotal >= g.TargetScore || g.OpponentTotal >= g.TargetScore);
    std::ifstream data(hg.folder / "Data.dat");
    std::string line;
    std::getline(data, line);
    EXPECT_EQ(line.substr(0, 4),
              std::to_string(g.GameStats[1]) + "," + std::to_string(g.GameStats[2]) + ",");
    EXPECT_FALSE(std::filesystem::exists(hg.folder / "All.dat"));
}

}  // namespace
}  // namespace trickhaven
