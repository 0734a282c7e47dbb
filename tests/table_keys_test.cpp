// The keyboard's rules: which cards the keys walk and in which order, where
// the focus goes when the hand changes, Tab's round of the controls, which
// button of a message each key clicks, and what the review's letters tell.
// A whole game played from the keyboard ends on the very table that the
// same game played with clicks leaves: the keys walk to each card and
// control and press it, answer every message, knock, and make the clicks'
// mistakes too (a card that may not be played, a card pressed twice); and
// the review's letters, pressed all along, in waits and while the player
// is awaited, change nothing.
#include "game/table_keys.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "headless/headless_game.h"
#include "headless/headless_keys.h"
#include "headless/player_policy.h"
#include "round_one/card_click.h"
#include "tests/meld_fixtures.h"

namespace trickhaven {

inline bool operator==(const TableEvent& a, const TableEvent& b) {
    return a.kind == b.kind && a.index == b.index;
}

namespace {

using K = TableKey;
using E = TableEventKind;

struct KeysTable : RoundOneTable {
    // Lays a card of the player face up at a place of the table.
    void Lay(int card, int left, int top, bool melded = false) {
        Card(g, card).Place = PlacePlayerHand;
        Card(g, card).Melded = melded;
        hg.table.SetCardImage(card, card);
        hg.table.MoveCard(card, left, top);
        hg.table.SetCardVisible(card, true);
    }
    std::vector<int> Chain() { return HandChain(g, SightOf(hg.table)); }
};

TEST(HandChain, HoldsTheHandsShownFacesInRowOrderThenTheMeldRowsTopRowFirst) {
    KeysTable t;
    t.Lay(KD, 4000, 10080);
    t.Lay(AD, 2500, 10080);
    t.Lay(QS1, 3000, 10080);
    t.Lay(KH, 2000, 8600, true);  // a marriage, lowest of the meld rows
    t.Lay(QH, 2350, 8600, true);
    t.Lay(JD1, 5610, 6405, true);  // a pinochle, on the top row
    t.Lay(AS, 2000, 7590, true);   // four aces, the middle row
    // Not the player's to play, or not to be seen: none is walked.
    t.Lay(TS, 5000, 10080);
    Card(t.g, TS).Place = PlacePlayed;
    t.Lay(JS, 5500, 10080);
    t.hg.table.SetCardImage(JS, CardBackImage);
    t.Lay(NH, 6000, 10080);
    t.hg.table.SetCardVisible(NH, false);
    t.hg.table.SetCardImage(KC, KC);
    Card(t.g, KC).Place = PlaceOpponentHand;
    EXPECT_EQ(t.Chain(), (std::vector<int>{AD, QS1, KD, JD1, AS, KH, QH}));
}

// The focus after the hand changed or a key moved it, from a chain of five
// with the focus on the card at `position`, walked there by keys or not.
// Left and Right step without wrapping, Home and End go to the ends.
TEST(HandFocus, StaysOnAWalkedCardElseTakesItsPlaceAndAHandNotWalkedKeepsToItsFirstCard) {
    struct Case {
        const char* what;
        bool walked;
        std::vector<int> after;
        std::size_t position;
        int card;                 // the focus after
        TableKey key = K::Enter;  // Enter moves nothing
    };
    const std::vector<int> before{1, 3, 5, 7, 9};
    const Case cases[] = {
        {"the focused card played", true, {1, 3, 7, 9}, 2, 7},
        {"the last card played", true, {1, 3, 5, 7}, 4, 7},
        {"a card drawn before it", true, {2, 1, 3, 5, 7, 9}, 2, 5},
        {"the hand sorted", true, {9, 7, 5, 3, 1}, 0, 1},
        {"the hand sorted before a key", false, {9, 7, 5, 3, 1}, 2, 9},
        {"a card drawn before a key", false, {2, 1, 3, 5, 7, 9}, 0, 2},
        {"the hand gone", true, {}, 1, 0},
        {"Left at the first", true, before, 0, 1, K::Left},
        {"Right at the last", true, before, 4, 9, K::Right},
        {"Home", true, before, 2, 1, K::Home},
        {"End", true, before, 1, 9, K::End},
        {"the first Right of a hand", false, before, 3, 3, K::Right},
    };
    for (const Case& c : cases) {
        HandFocus focus{before[c.position], c.position, c.walked};
        MoveHandFocus(focus, c.after, c.key);
        EXPECT_EQ(focus.card, c.card) << c.what;
        if (focus.card != 0) {
            EXPECT_EQ(c.after[focus.position], focus.card) << c.what;
        }
    }
    // While dealing the focus stays put; once dealt, it is on the first card.
    HandFocus focus{9, 4, true};
    FollowHand(focus, {});
    FollowHand(focus, {13}, false);
    FollowHand(focus, {11, 13, 15}, false);
    EXPECT_EQ(focus.card, 13);
    FollowHand(focus, {11, 13, 15});
    EXPECT_EQ(focus.card, 11);
}

TEST(TableStops, TabPassesHiddenControlsAndAnEmptyHandAndBackTabGoesTheOtherWay) {
    KeysTable t;
    TableView& view = t.hg.table;
    view.SetControlVisible(TableControl::FramDeclare, true);
    EXPECT_EQ(NextStop(view, TableStop::Hand, true, true), TableStop::DoublePinochle);
    EXPECT_EQ(NextStop(view, TableStop::Hand, false, true), TableStop::Cancel);
    view.SetControlVisible(TableControl::FramDeclare, false);
    view.SetControlVisible(TableControl::FramMarriage, true);
    view.SetControlVisible(TableControl::CmdSort, true);
    EXPECT_EQ(NextStop(view, TableStop::MarriageSpades, true, false), TableStop::Sort);
    view.SetControlVisible(TableControl::FramMeldHelp, true);
    EXPECT_EQ(NextStop(view, TableStop::MarriageSpades, true, false), TableStop::ReminderOk);
}

// Enter and Space click what has the focus, K knocks while "Knock?" shows; a
// panel takes the focus on its first button, Escape cancels the offer or
// closes the reminder, a panel gone gives the focus back to its card, and
// Alt+S sorts.
TEST(TableKeys, KeysClickWhatHasTheFocusPanelsTakeItOnTheirFirstButtonAndEscapeCancelsTheOffer) {
    KeysTable t;
    t.Lay(KD, 4000, 10080);
    t.Lay(AD, 2500, 10080);
    t.hg.table.SetCaption(TableLabel::CmdSort, "Sort Suits");
    TableFocus focus;
    struct Step {
        TableControl control;
        bool up;
        std::vector<TableKey> keys;
        std::optional<TableEvent> click;
        char letter = 0;  // of the keys pressed with Alt
    };
    const Step steps[] = {
        {TableControl::LblKnock, false, {K::Enter}, TableEvent{E::CardClick, AD}},
        {TableControl::LblKnock, false, {K::Right, K::Space}, TableEvent{E::CardClick, KD}},
        {TableControl::LblKnock, false, {K::Knock}, std::nullopt},
        {TableControl::LblKnock, true, {K::Knock}, TableEvent{E::KnockClick}},
        {TableControl::FramDeclare, true, {K::Enter}, TableEvent{E::DoublePinochleClick}},
        {TableControl::FramDeclare, true, {K::Tab, K::Escape}, TableEvent{E::CancelClick}},
        {TableControl::FramDeclare, false, {}, std::nullopt},
        {TableControl::FramMarriage, true, {K::Space}, TableEvent{E::MarriageClick, Diamonds}},
        {TableControl::FramMarriage, true, {K::Escape}, std::nullopt},
        {TableControl::FramMarriage, false, {}, std::nullopt},
        {TableControl::FramDeclare, true, {K::Tab, K::Enter}, TableEvent{E::PinochleClick}},
        {TableControl::FramMeldHelp, true, {K::Enter}, TableEvent{E::ReminderOkClick}},
        {TableControl::FramMeldHelp, true, {K::Escape}, TableEvent{E::ReminderOkClick}},
        {TableControl::FramMeldHelp, false, {}, std::nullopt},
        {TableControl::FramDeclare, false, {K::Enter}, TableEvent{E::CardClick, KD}},
        // Alt+S sorts whatever the sort button reads, and only while it shows.
        {TableControl::CmdSort, false, {K::AltLetter}, std::nullopt, 'S'},
        {TableControl::CmdSort, true, {K::AltLetter}, TableEvent{E::SortClick}, 'S'},
        {TableControl::CmdSort, true, {K::AltLetter}, std::nullopt, 'q'},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(ControlName(step.control) + std::string(step.up ? " up" : " gone"));
        t.hg.table.SetControlVisible(step.control, step.up);
        std::optional<TableEvent> click;
        for (const TableKey key : step.keys) {
            click = PressTableKey(focus, t.g, SightOf(t.hg.table), {key, step.letter});
        }
        EXPECT_EQ(click, step.click);
    }
}

// After each deal the focus is on the first card, wherever the keys had been.
TEST(TableKeys, AfterEachDealTheFocusIsOnTheFirstCardOfTheHand) {
    HeadlessGame hg(5);
    HeadlessKeyboard& keys = hg.platform.keyboard;
    std::vector<std::pair<int, int>> focusAndFirst;
    hg.platform.script.push_back({E::MenuNewGame});
    hg.platform.keys.push_back({K::Knock});  // no knock yet: the keys are only in use
    hg.platform.policy = [&](Game& g) -> std::optional<TableEvent> {
        if (!CardAwaited(g)) return std::nullopt;
        focusAndFirst.emplace_back(keys.Focus().hand.card, HandChain(g, SightOf(hg.table)).front());
        if (focusAndFirst.size() == 2) throw ScenarioOver{};
        keys.Press(g, hg.table, {K::End});
        return TableEvent{E::MenuNewGame};
    };
    hg.table.answerDeluxe = [](const MessageRecord& m) {
        return int(m.buttons[1] == "Yes New Game");
    };
    ASSERT_TRUE(hg.Run());
    EXPECT_EQ(focusAndFirst.size(), 2U);
    for (const auto& [focused, first] : focusAndFirst) EXPECT_EQ(focused, first);
}

TEST(TableReview, EachLetterTellsWhatTheTableShowsNow) {
    KeysTable t;  // Hearts trumps, the second Nine of Hearts turned up, trick 4
    Game& g = t.g;
    TableReview review;
    auto tell = [&](char letter) {
        return PressReview(g, t.hg.table, review, "Ada's trick, 4. Meld?", letter);
    };
    EXPECT_EQ(tell('t'), "No trick played yet in this hand.");
    const std::vector<std::pair<PlayLogEvent, std::string>> trick{
        {CardPlayed(TheRobot, AS), "On the table: Lorinda, Ace of Spades."},
        {CardPlayed(ThePlayer, KS), "On the table: Lorinda, Ace of Spades; Ada, King of Spades."},
        {TrickTaken(TheRobot, 15),
         "Last trick: Lorinda, Ace of Spades; Ada, King of Spades. Lorinda's trick, 15."}};
    for (const auto& [event, told] : trick) {
        review.Hear(g, event);
        EXPECT_EQ(tell('T'), told);
    }
    // The next trick waits for its first card: the last one is still told.
    g.TrickCount = 5;
    EXPECT_EQ(tell('t'), trick.back().second);
    review.Hear(g, CardPlayed(TheRobot, JS));
    EXPECT_EQ(tell('t'), "On the table: Lorinda, Jack of Spades.");

    std::tie(g.PlayerTotal, g.OpponentTotal, g.PlayerTotalTricks, g.OpponentTotalTricks) =
        std::tuple(320, 410, 42, 15);
    std::tie(g.PlayerTotalMelds, g.OpponentTotalMelds, g.TargetScore) = std::tuple(20, 40, 750);
    EXPECT_EQ(tell('p'),
              "Totals: Ada 320, Lorinda 410. This hand, tricks: Ada 42, Lorinda 15; melds: Ada "
              "20, Lorinda 40. Target 750.");

    g.StockLeft = 15;
    EXPECT_EQ(tell('u'), "Hearts are Trumps. The up card is Nine of Hearts. Stock 15.");
    Card(g, g.UpCard).Place = PlaceOpponentHand;
    EXPECT_EQ(tell('U'), "Hearts are Trumps. The up card, Nine of Hearts, is taken. Stock 15.");

    // The marriage row under the pinochle's, each read from the left; a
    // melded card already played is in no row.
    t.Lay(QH, 2350, 8600, true);
    t.Lay(KH, 2000, 8600, true);
    t.Lay(QS1, 5960, 6405, true);
    t.Lay(JD1, 5610, 6405, true);
    t.Lay(AH, 2000, 7590, true);
    Card(g, AH).Place = PlacePlayed;
    EXPECT_EQ(tell('m'),
              "Ada: Jack of Diamonds, Queen of Spades; King of Hearts, Queen of Hearts. Lorinda: "
              "no melds.");
    EXPECT_EQ(tell('l'), "Ada's trick, 4. Meld?");
    EXPECT_EQ(PressReview(g, t.hg.table, review, "", 'L'), "Nothing told yet.");
    // No other letter asks, and none is the knock's; the manual lists them.
    for (const char letter : std::string("abcdefghijknoqrsvwxyz")) {
        EXPECT_FALSE(ReviewOfLetter(letter)) << letter;
    }
    std::ifstream manualFile(TRICKHAVEN_MANUAL);
    const std::string manual{std::istreambuf_iterator<char>(manualFile), {}};
    for (const char letter : std::string(ReviewLetters)) {
        EXPECT_NE(manual.find(std::string("\n.B ") + letter + "\n"), std::string::npos) << letter;
    }
}

TEST(MessageKeys, EachKeyClicksTheButtonItStandsForInEveryChoiceOfTheGame) {
    struct Case {
        std::array<std::string, 3> captions;
        std::vector<KeyPress> keys;
        std::optional<int> button;
    };
    const KeyPress enter{K::Enter}, space{K::Space}, tab{K::Tab}, back{K::BackTab}, esc{K::Escape};
    const Case cases[] = {
        {{"Yes Exit", "Carry On", ""}, {esc}, 1},
        {{"No Continue", "Yes New Game", ""}, {tab, esc}, 0},
        // Escape at the saved game's offer keeps the game rather than drop it.
        {{"Carry On", "New Game", ""}, {esc}, 0},
        {{"Play", "Exit", ""}, {esc}, std::nullopt},
        {{"Stock Card", "Up Card", ""}, {back, enter}, 1},
        {{"O.K", "", ""}, {tab, space}, 0},
        {{"O.K", "", ""}, {esc, KeyPress{K::Left}}, std::nullopt},
        {{"One", "Two", "Three"}, {back, enter}, 2},
        {{"&Yes", "&No", ""}, {KeyPress{K::AltLetter, 'N'}}, 1},
        {{"Fish && Chips", "C&ancel it", ""}, {KeyPress{K::AltLetter, 'a'}}, 1},
        {{"Fish && Chips", "", ""}, {KeyPress{K::AltLetter, 'c'}}, std::nullopt},
    };
    for (const Case& c : cases) {
        MessageRecord message;
        message.buttons = c.captions;
        EXPECT_EQ(AnswerByKeys(message, c.keys), c.button) << c.captions[0] << " " << c.keys.size();
    }
}

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
