#include "tools/sim/transcript.h"

#include "tools/sim/json_text.h"

namespace trickhaven {

namespace {

std::string Number(int value) {
    return std::to_string(value);
}

std::string Flag(bool value) {
    return value ? "1" : "0";
}

template <typename Each>
std::string CardList(Each each) {
    std::string out = "[";
    for (int card = 1; card <= CardCount; ++card) {
        if (card > 1) out += ',';
        out += each(card);
    }
    return out + "]";
}

int RoundOf(const Game& g) {
    if (g.RoundOneOn) return 1;
    if (g.RoundTwoOn) return 2;
    return 0;
}

std::string EventFields(const PlayLogEvent& e) {
    switch (e.kind) {
        case PlayLogKind::Card:
            return "\"event\":\"card\",\"who\":" + Number(e.who) + ",\"card\":" + Number(e.card);
        case PlayLogKind::Trick:
            return "\"event\":\"trick\",\"winner\":" + Number(e.winner) +
                   ",\"points\":" + Number(e.points);
        case PlayLogKind::Draw:
            return "\"event\":\"draw\",\"who\":" + Number(e.who) + ",\"card\":" + Number(e.card);
        case PlayLogKind::Meld:
            return "\"event\":\"meld\",\"who\":" + Number(e.who) +
                   ",\"kind\":" + JsonString(e.meldKind) + ",\"value\":" + Number(e.value) +
                   ",\"suit\":" + Number(e.suit) + ",\"points\":" + Number(e.points);
        case PlayLogKind::MeldTurn:
            return "\"event\":\"meld_turn\",\"who\":" + Number(e.who) +
                   ",\"made\":" + (e.made ? "true" : "false");
        case PlayLogKind::HandEnd:
            return "\"event\":\"hand_end\"";
        case PlayLogKind::GameEnd:
            return "\"event\":\"game_end\",\"winner\":" + Number(e.winner);
    }
    return "\"event\":\"unknown\"";
}

}  // namespace

std::string TableStateJson(const Game& g) {
    std::string out = "{\"trick\":" + Number(g.TrickCount) + ",\"round\":" + Number(RoundOf(g)) +
                      ",\"leader\":" + Number(g.Leader) + ",\"trump\":" + Number(g.TrumpSuit) +
                      ",\"up_card\":" + Number(g.UpCard) + ",\"lead_card\":" + Number(g.LeadCard) +
                      ",\"lead_suit\":" + Number(g.LeadSuit);
    out += ",\"places\":" + CardList([&](int card) { return Number(Card(g, card).Place); });
    out += ",\"flags\":" + CardList([&](int card) { return Number(CardFlagBits(Card(g, card))); });
    out += ",\"made\":[" + Flag(g.PlayerPinochleMade) + "," + Flag(g.PlayerDoublePinochleMade) +
           "," + Flag(g.OpponentPinochleMade) + "," + Flag(g.OpponentDoublePinochleMade) + "]";
    out += ",\"totals\":[" + Number(g.PlayerTotal) + "," + Number(g.OpponentTotal) + "," +
           Number(g.PlayerTotalTricks) + "," + Number(g.OpponentTotalTricks) + "," +
           Number(g.PlayerTotalMelds) + "," + Number(g.OpponentTotalMelds) + "]";
    out += ",\"target\":" + Number(g.TargetScore) + "}";
    return out;
}

void Transcript::Play(const Game& g, const PlayLogEvent& event) {
    Line(g, EventFields(event));
}

void Transcript::Message(const Game& g, const MessageRecord& message) {
    std::string fields = "\"event\":\"message\",\"title\":" + JsonString(message.title) +
                         ",\"text\":" + JsonString(message.text) + ",\"buttons\":[";
    bool first = true;
    for (const std::string& button : message.buttons) {
        if (button.empty()) continue;
        fields += (first ? "" : ",") + JsonString(button);
        first = false;
    }
    fields += "],\"choice\":" + Number(message.choice);
    Line(g, fields);
}

void Transcript::Status(const Game& g, int panel, const std::string& text) {
    Line(g, "\"event\":\"status\",\"panel\":" + Number(panel) + ",\"text\":" + JsonString(text));
}

void Transcript::Line(const Game& g, const std::string& fields) {
    const std::string line = "{" + fields + ",\"state\":" + TableStateJson(g) + "}\n";
    std::fwrite(line.data(), 1, line.size(), out_);
}

}  // namespace trickhaven
