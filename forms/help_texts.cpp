#include "forms/help_texts.h"

namespace trickhaven {

namespace {

// The card pictures of pages 1 and 2 stand in fixed gaps of these lines: the
// empty lines and the line lengths leave them room.

const char* const kPageOne[] = {
    "",
    "",
    "",
    "     Welcome to Pinochle, a cousin of Bezique that German settlers brought",
    "     to America. This is the game for two players, played by the most common",
    "     rules and with no choices to make, so that a learner is never confused;",
    "     an expert will still find a challenge in the robot across the table.",
    "",
    "     THE PACK: two standard packs of 52 cards without the 2s to 8s, 48 cards.",
    "",
    "     RANK OF CARDS: Ace high, 10, King, Queen, Jack, 9. See the cards below.",
    "",
    "",
    "",
    "",
    "",
    "",
    "     THE SHUFFLE AND CUT: the computer shuffles the cards for you, and a",
    "     random choice decides who deals the first hand.",
    "",
    "     THE DEAL: each player receives twelve cards in packets of three, the",
    "     non-dealer first. The next card is turned face up and names trumps;",
    "     the rest of the pack lies face down beside it as the stock.",
    "",
    "     OBJECT OF THE GAME: to meld and win tricks until one player has",
    "     reached or passed the target score.",
    "",
    "     SCORING: if the card turned up is a Nine, the dealer scores 10 for it.",
    "     The winner of a trick may exchange a Nine of trumps for the turned",
    "     card, or declare it for 10; or he may simply play it in a trick.",
    "",
};

const char* const kPageTwo[] = {
    "",
    "",
    "     SCORING:",
    "     There are two ways of scoring points. Declarations, or melds, come first and",
    "     then the cards won in tricks. A melded card may still be played, or be used in a",
    "     new meld of another type: the King of a marriage may serve in four Kings or in a",
    "     run of trumps, but never in a second marriage.",
    "",
    "",
    "",
    "     The other declarations are:",
    "",
    "      Marriage (K, Q of the same suit) in trumps 40",
    "      Marriage (K, Q in any suit) 20",
    "      Sequence (A, 10, K, Q, J of trumps) 150",
    "      Pinochle (Queen of Spades and Jack of Diamonds) 40 ",
    "      Double Pinochle 500",
    "       4 Aces different suits 100",
    "      4 Kings different suits 80",
    "      4 Queens different suits 60",
    "      4 Jacks different suits 40",
};

const char* const kPageThree[] = {
    "     Points for each trick won: Ace 11, Ten 10, King 4, Queen 3 and Jack 2.",
    "     They are added to the scores at the end of each hand.",
    "",
    "     THE PLAY: Non-Dealer leads. The winner of a trick leads next. In the first round any",
    "     card may be played, and the card led wins unless a higher one of its suit or a trump "
    "falls.",
    "",
    "     The player winning the trick, and only he, may then make any declaration.",
    "     The declared cards lie face up to one side of the table until they are played.",
    "",
    "     After making any declaration, or none, the winner draws the top card of the stock",
    "     and the loser the next one, so that each hand holds 12 cards again.",
    "",
    "     A card may not be used twice in the same declaration, but it may be used again",
    "     in declarations of different types: the Queen of Spades of a Pinochle may join a",
    "     marriage or a run when Spades are trumps. The computer refuses any declaration",
    "     that is not allowed.",
    "",
    "     When the stock contains only one face-down card, that card is turned up, and the",
    "     winner of the trick chooses between the two cards. He may still meld after that.",
    "",
    "     All the declared cards go back into the hands, and the last 12 cards are played",
    "     out: each player must follow suit if he can, and play a trump if he cannot.",
    "     The tricks score as they did in the first round.",
    "",
    "     The normal Target Score is 1000, and it can be changed. When both players are",
    "     over it at the end of a hand, it rises by 250, as many times as it takes. A player",
    "     who reaches the target during the first round may knock and declare himself the",
    "     winner, and the opponent may do the same.",
    "",
    "     To play the cards, click one with either mouse button. After you win a trick,",
    "     buttons offer the melds you may make; after a meld, or Cancel, a card comes to",
    "     you from the stock.",
    "",
    "     The computer will guide you: nothing wrong gets through, and the Melds Reminder is there "
    "at any time.",
    "",
    "     From the Options menu you may change the names of both players and the speed.",
};

template <std::size_t N>
QStringList Lines(const char* const (&text)[N]) {
    QStringList lines;
    for (const char* line : text) {
        lines.append(QString::fromLatin1(line));
    }
    return lines;
}

}  // namespace

QStringList HelpPageText(int page) {
    switch (page) {
        case 1:
            return Lines(kPageOne);
        case 2:
            return Lines(kPageTwo);
        case 3:
            return Lines(kPageThree);
        default:
            return {};
    }
}

}  // namespace trickhaven
