#include "headless/player_policy.h"

#include <array>
#include <vector>

#include "expert/decisions.h"
#include "robot/expert_seat.h"
#include "round_one/card_click.h"

namespace trickhaven {

namespace {

// The meld buttons in the order a greedy player tries them: the richest
// melds first, Cancel last.
const std::array<TableEvent, 10> kGreedyMelds{{
    {TableEventKind::DoublePinochleClick},
    {TableEventKind::RunClick},
    {TableEventKind::FoursClick, 3},
    {TableEventKind::FoursClick, 0},
    {TableEventKind::FoursClick, 1},
    {TableEventKind::PinochleClick},
    {TableEventKind::FoursClick, 2},
    {TableEventKind::MakeMarriageClick},
    {TableEventKind::DixClick},
    {TableEventKind::CancelClick},
}};

std::vector<int> LegalCards(const Game& g) {
    std::vector<int> cards;
    for (int card = 1; card <= CardCount; ++card) {
        if (ClickWouldPlay(g, card)) cards.push_back(card);
    }
    return cards;
}

}  // namespace

std::optional<PolicyKind> PolicyKindByName(const std::string& name) {
    if (name == "first") return PolicyKind::First;
    if (name == "random") return PolicyKind::Random;
    if (name == "greedy") return PolicyKind::Greedy;
    if (name == "expert") return PolicyKind::Expert;
    return std::nullopt;
}

template <typename Decide>
auto PlayerPolicy::Think(Decide decide) {
    if (onThinking) onThinking(true);
    const auto choice = decide();
    if (onThinking) onThinking(false);
    return choice;
}

std::optional<TableEvent> PlayerPolicy::Next(const Game& g) {
    // The Expert knocks, once, as soon as the knock wins.
    if (!g.view.IsControlVisible(TableControl::LblKnock)) knocked_ = false;
    if (kind_ == PolicyKind::Expert && !knocked_ && g.RoundOneOn && !g.PlayerKnocked &&
        g.view.IsControlVisible(TableControl::LblKnock) && g.PlayerTotal >= g.TargetScore &&
        g.OpponentTotal < g.TargetScore) {
        knocked_ = true;
        return TableEvent{TableEventKind::KnockClick};
    }
    if (g.MeldAwaited) {
        return kind_ == PolicyKind::Expert ? ExpertMeldButton(g) : NextMeldButton(g);
    }
    meldAttempt_ = 0;
    expertMeld_.reset();
    if (CardAwaited(g)) {
        const int card = ChooseCard(g);
        if (card != 0) return TableEvent{TableEventKind::CardClick, card};
    }
    return std::nullopt;
}

std::optional<TableEvent> PlayerPolicy::NextMeldButton(const Game& g) {
    if (g.MeldCommandRunning) return std::nullopt;
    if (kind_ == PolicyKind::First) return TableEvent{TableEventKind::CancelClick};
    if (g.view.IsControlVisible(TableControl::FramMarriage)) {
        const int suit = static_cast<int>(random_() % 4) + 1;
        return TableEvent{TableEventKind::MarriageClick,
                          kind_ == PolicyKind::Greedy ? g.TrumpSuit : suit};
    }
    if (!g.view.IsControlVisible(TableControl::FramDeclare)) return std::nullopt;
    if (kind_ == PolicyKind::Greedy) {
        const std::size_t attempt = static_cast<std::size_t>(meldAttempt_++);
        return kGreedyMelds.at(attempt < kGreedyMelds.size() ? attempt : kGreedyMelds.size() - 1);
    }
    return kGreedyMelds.at(static_cast<std::size_t>(random_() % kGreedyMelds.size()));
}

// The meld the engine chose for this offer, by the buttons that lay it:
// a marriage through the marriage frame, nothing by Cancel.
std::optional<TableEvent> PlayerPolicy::ExpertMeldButton(const Game& g) {
    if (g.MeldCommandRunning) return std::nullopt;
    // Trick 12 gives the player two offers with no turn between them.
    const bool afterLastPair = Card(g, g.UpCard).Place != PlaceUpCard;
    if (expertMeldAfterLastPair_ != afterLastPair) {
        expertMeld_.reset();
        meldAttempt_ = 0;
    }
    expertMeldAfterLastPair_ = afterLastPair;
    if (!expertMeld_ || meldAttempt_ > 2) {
        expertMeld_ = meldAttempt_ > 2 ? expert::Meld{} : Think([&g, afterLastPair] {
            return expert::ExpertMeld(SeatViewOf(
                g, ThePlayer, afterLastPair ? expert::Stage::LastMeld : expert::Stage::Meld));
        });
    }
    const expert::Meld meld = *expertMeld_;
    if (g.view.IsControlVisible(TableControl::FramMarriage)) {
        return TableEvent{TableEventKind::MarriageClick, meld.arg};
    }
    if (!g.view.IsControlVisible(TableControl::FramDeclare)) return std::nullopt;
    ++meldAttempt_;
    switch (meld.kind) {
        case expert::MeldKind::None:
            return TableEvent{TableEventKind::CancelClick};
        case expert::MeldKind::Dix:
            return TableEvent{TableEventKind::DixClick};
        case expert::MeldKind::DoublePinochle:
            return TableEvent{TableEventKind::DoublePinochleClick};
        case expert::MeldKind::Pinochle:
            return TableEvent{TableEventKind::PinochleClick};
        case expert::MeldKind::Marriage:
            return TableEvent{TableEventKind::MakeMarriageClick};
        case expert::MeldKind::Fours:
            // The buttons of the fours run Kings, Queens, Jacks, Aces.
            return TableEvent{TableEventKind::FoursClick, meld.arg == Ace ? 3 : King - meld.arg};
        case expert::MeldKind::Run:
            return TableEvent{TableEventKind::RunClick};
    }
    return std::nullopt;
}

int PlayerPolicy::ChooseCard(const Game& g) {
    const std::vector<int> cards = LegalCards(g);
    if (cards.empty()) return 0;
    switch (kind_) {
        case PolicyKind::Expert:
            return Think(
                [&g] { return expert::ExpertCard(SeatViewOf(g, ThePlayer, expert::Stage::Card)); });
        case PolicyKind::First:
            return cards.front();
        case PolicyKind::Random:
            return cards[static_cast<std::size_t>(random_() % cards.size())];
        case PolicyKind::Greedy:
            break;
    }
    // Lead the strongest card; follow with the weakest card that beats the
    // lead in its suit, else throw the weakest.
    auto strength = [&](int card) {
        return Card(g, card).Value + (Card(g, card).Suit == g.TrumpSuit ? 10 : 0);
    };
    int best = 0;
    if (g.Leader == ThePlayer) {
        for (const int card : cards) {
            if (best == 0 || strength(card) > strength(best)) best = card;
        }
        return best;
    }
    const CardRec& lead = Card(g, g.LeadCard);
    for (const int card : cards) {
        const CardRec& c = Card(g, card);
        const bool beats = (c.Suit == lead.Suit && c.Value > lead.Value) ||
                           (c.Suit == g.TrumpSuit && lead.Suit != g.TrumpSuit);
        if (beats && (best == 0 || strength(card) < strength(best))) best = card;
    }
    if (best != 0) return best;
    for (const int card : cards) {
        if (best == 0 || strength(card) < strength(best)) best = card;
    }
    return best;
}

int PlayerPolicy::Answer(const MessageRecord& message, const Game* g) {
    if (message.title == "Make choice") {
        switch (kind_) {
            case PolicyKind::Expert:
                return g != nullptr && Think([g] {
                           return expert::ExpertTakesStockCard(
                               SeatViewOf(*g, ThePlayer, expert::Stage::LastPair));
                       })
                           ? 0
                           : 1;
            case PolicyKind::First:
                return 0;
            case PolicyKind::Random:
                return static_cast<int>(random_() % 2);
            case PolicyKind::Greedy:
                return 1;
        }
    }
    return 0;
}

}  // namespace trickhaven
