// A whole game played from the keyboard ends on the very table that the
// same game played with clicks leaves: the keys walk to each card and
// control and press it, answer every message, knock, and make the clicks'
// mistakes too (a card that may not be played, a card pressed twice); and
// the review's letters, pressed all along, in waits and while the player
// is awaited, change nothing.
#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "headless/headless_game.h"
#include "headless/headless_keys.h"
#include "headless/player_policy.h"

namespace trickhaven {
namespace {

using E = TableEventKind;

// The player's wishes, the same in both games: a greedy player who lowers
// the target to 300 so that a knock comes, sorts each new hand, knocks as
// soon as he may (once: the knock waits, and a knock in its wait knocks
// again), tries a card that may not follow before each follow of
// Round Two, and presses his card a second time while it flies.
class Wishes {
public:
    explicit Wishes(const HeadlessTable& table) : table_(table) {}

    std::optional<TableEvent> Next(const Game& g) {
        if (!g.GameOn) return std::nullopt;
        if (!targetLowered_) {
            targetLowered_ = true;
            return TableEvent{E::MenuTarget300};
        }
        const std::vector<int> chain = HandChain(g, SightOf(table_));
        if (CardAwaited(g)) {
            if (g.view.IsControlVisible(TableControl::LblKnock) && !knocked_) {
                knocked_ = true;
                return TableEvent{E::KnockClick};
            }
            if (sortedHand_ != g.HandNumber) {
                sortedHand_ = g.HandNumber;
                return TableEvent{E::SortClick};
            }
            if (g.RoundTwoOn && g.Leader != ThePlayer && triedTrick_ != g.TrickCount) {
                triedTrick_ = g.TrickCount;
                for (const int card : chain) {
                    if (!ClickWouldPlay(g, card)) return TableEvent{E::CardClick, card};
                }
            }
        }
        if (const auto move = greedy_.Next(g)) {
            if (move->kind == E::CardClick) again_ = move->index;
            return move;
        }
        if (again_ == 0 || std::find(chain.begin(), chain.end(), again_) == chain.end()) {
            return std::nullopt;
        }
        return TableEvent{E::CardClick, std::exchange(again_, 0)};
    }

    // The button wanted: the other pair's card every second hand, and the
    // game's end after the first game.
    int Answer(const MessageRecord& m) {
        if (m.title == "Play again?") return 1;
        if (m.title == "Make choice") return (choices_++) % 2;
        return 0;
    }

private:
    const HeadlessTable& table_;
    PlayerPolicy greedy_{PolicyKind::Greedy, 5};
    bool targetLowered_ = false;
    bool knocked_ = false;
    int sortedHand_ = -1;
    int triedTrick_ = -1;
    int again_ = 0;
    int choices_ = 0;
};

// All that a key could change: the cards, the game's run and scores, the
// clock, the focus and the table's record.
std::string Standing(const HeadlessGame& hg) {
    const Game& g = hg.game;
    std::ostringstream standing;
    for (int card = 1; card <= CardCount; ++card)
        standing << Card(g, card).Place << ':' << CardFlagBits(Card(g, card)) << ' ';
    const auto show = [&standing](const auto&... figure) { ((standing << +figure << ' '), ...); };
    const TableFocus& focus = hg.platform.keyboard.Focus();
    show(g.TrickCount, g.Leader, g.PlayerMayPlay, g.MeldAwaited, g.GameOn, g.StockLeft, g.UpCard,
         g.LeadCard, g.FollowCard, g.DelayMs, g.DelayStart, g.PlayerTotal, g.OpponentTotal,
         g.PlayerTotalTricks, g.OpponentTotalTricks, g.PlayerTotalMelds, g.OpponentTotalMelds,
         g.TargetScore, focus.hand.card, static_cast<int>(focus.stop), hg.table.timeline.size());
    return standing.str();
}

struct Played {
    std::vector<std::string> timeline;
    std::vector<std::string> messages;
    std::array<long, 11> presses{};
    long events = 0;
    // Times a card was awaited while the keys' focus was on no card of the
    // hand: the focus must keep up with the hand between two keys.
    int focusLost = 0;
    // Rounds of events in which every review letter was pressed, while the
    // player was awaited and in the waits.
    int reviewsAwaited = 0;
    int reviewsInWaits = 0;
};

Played PlayGame(std::uint64_t seed, bool byKeys) {
    HeadlessGame hg(seed);
    Wishes wishes(hg.table);
    Played played;
    hg.platform.script.push_back({E::MenuNewGame});
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        const auto wanted = wishes.Next(g);
        if (!byKeys || !wanted || wanted->kind == E::MenuTarget300) return wanted;
        const std::vector<int> chain = HandChain(g, SightOf(hg.table));
        const int focused = hg.platform.keyboard.Focus().hand.card;
        if (hg.platform.keyboard.Used() && CardAwaited(g) && !chain.empty() &&
            std::find(chain.begin(), chain.end(), focused) == chain.end()) {
            ++played.focusLost;
        }
        return hg.platform.keyboard.PressToward(g, hg.table, *wanted);
    };
    hg.table.answerDeluxe = [&](const MessageRecord& m) {
        const int wanted = wishes.Answer(m);
        return byKeys ? AnswerByKeys(m, KeysToAnswer(m, wanted)).value_or(-1) : wanted;
    };
    TableReview review;
    hg.game.onPlay = [&](const Game& g, const PlayLogEvent& e) { review.Hear(g, e); };
    hg.platform.stopWhen = [&](const Game& g) {
        if (byKeys && hg.platform.rounds % 3 == 0) {
            const std::string before = Standing(hg);
            for (const char letter : std::string(ReviewLetters)) {
                const auto told = PressReview(g, hg.table, review, "", letter);
                EXPECT_TRUE(told && !told->empty()) << letter;
            }
            EXPECT_EQ(Standing(hg), before) << "a review letter changed the game";
            ++(g.PlayerMayPlay || g.MeldAwaited ? played.reviewsAwaited : played.reviewsInWaits);
        }
        return hg.platform.rounds > 3'000'000;
    };
    EXPECT_FALSE(hg.Run()) << "the game did not come to its end";
    played.timeline = hg.table.timeline;
    played.presses = hg.platform.keyboard.presses;
    played.events = hg.platform.eventsServed;
    for (const MessageRecord& m : hg.table.Messages()) {
        played.messages.push_back(m.title + " " + std::to_string(m.choice));
    }
    return played;
}

std::string FirstDifference(const std::vector<std::string>& a, const std::vector<std::string>& b) {
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i] != b[i]) return "line " + std::to_string(i) + ": " + a[i] + " | " + b[i];
    }
    return "lengths " + std::to_string(a.size()) + " and " + std::to_string(b.size());
}

TEST(KeyPlay, AWholeGameByKeysEndsOnTheTableThatTheClicksLeave) {
    // A seed whose deals bring all the game's moments, a knock among them.
    const Played clicks = PlayGame(98, false);
    const Played keys = PlayGame(98, true);
    ASSERT_TRUE(keys.timeline == clicks.timeline)
        << FirstDifference(keys.timeline, clicks.timeline);
    EXPECT_EQ(keys.messages, clicks.messages);
    EXPECT_EQ(keys.events, clicks.events);
    EXPECT_EQ(keys.focusLost, 0);
    EXPECT_GT(keys.reviewsAwaited * keys.reviewsInWaits, 0);
    // The game had what it is played for: both answers of the last pair, a
    // follow refused, the game's end, the marriage panel and a knock.
    auto count = [](const std::vector<std::string>& lines, const std::string& what) {
        return std::count_if(lines.begin(), lines.end(), [&](const std::string& line) {
            return line.starts_with(what) || line.ends_with(what);
        });
    };
    EXPECT_GT(count(clicks.messages, "Make choice 1") * count(clicks.messages, "Make choice 0"), 0);
    EXPECT_GT(
        count(clicks.messages, "Must follow suit.") + count(clicks.messages, "You have a Trump"),
        0);
    EXPECT_EQ(count(clicks.messages, "Play again? 1"), 1);
    EXPECT_GT(count(clicks.timeline, "show FramMarriage") * count(clicks.timeline, "show LblKnock"),
              0);
    for (const TableKey key : {TableKey::Knock, TableKey::Tab, TableKey::Right, TableKey::Enter}) {
        EXPECT_GT(keys.presses.at(static_cast<std::size_t>(key)), 0) << static_cast<int>(key);
    }
}

}  // namespace
}  // namespace trickhaven
