#include "tools/gallery/game_messages.h"

namespace trickhaven {

namespace {

const std::string Player = "Player";
const std::string Robot = "Lorinda";
// The longest card name, where a message names a card.
const std::string Card = "Queen of Diamonds";

GameMessage Deluxe(std::string text, std::string button0, std::string button1, int icon,
                   std::string title) {
    return {MessageKind::Deluxe, std::move(text), std::move(button0), std::move(button1), "", icon,
            std::move(title)};
}

GameMessage Plain(std::string text) {
    return {MessageKind::Plain, std::move(text), "", "", "", 0, "Trickhaven"};
}

// A refusal of a meld: the player's name before the words.
GameMessage NoMeld(const std::string& title, const std::string& button, const std::string& text) {
    return Deluxe(Player + text, button, "", 1, title);
}

std::vector<GameMessage> AllMessages() {
    const std::string scores = "312 against 287";
    std::vector<GameMessage> all{
        Deluxe("You are in the middle of a game. Really start a new one?", "No Continue",
               "Yes New Game", 2, "Leave this game?"),
        Deluxe(Player +
                   " Your last game stands at 1130 against 1215 with target score 1250. Carry on "
                   "with it?",
               "Carry On", "New Game", 2, "Saved Game"),
        Deluxe(Player + " You are in the middle of a game. Do you really wish to Exit the game?",
               "No Continue", "Yes Exit", 2, "Really Exit?"),
        Deluxe(" Do you really wish to exit?", "Yes Exit", "Carry On", 2, "Really Exit?"),
        Deluxe(Player + " This will erase all statistice of games won and lost. Erase them?",
               "Yes ", "No", 2, "Really Erase?"),
        Deluxe(Player + " you have played a total of 12 games, and won 7 against " + Robot +
                   " winning 5 games",
               "Right", "", 3, "Current Statistics"),
        Deluxe(Player + " you have played a total of 12 games, and won 7 against " + Robot +
                   " winning 5 games as Classic, and a total of 4 games, and won 1 against " +
                   Robot + " winning 3 games as Expert",
               "Right", "", 3, "Current Statistics"),
        Deluxe(Player + " well done, you won that game with points 1012 against 874 for " + Robot +
                   "Click on Play for another game or Exit to leave the game.",
               "Play", "Exit", 1, "Play again?"),
        Deluxe(Player + " unfortunately, you lost that game with points 874 against 1012 for " +
                   Robot + "Click on Play for another game or Exit to leave the game.",
               "Play", "Exit", 1, "Play again?"),
        Deluxe(Player + " you won the last trick, if you wish to take " + Card +
                   " click on Stock Card or click on Up Card to take Trump card.",
               "Stock Card", "Up Card", 1, "Make choice"),
        Deluxe(Robot + " has decided to take the last Stock card.", "O.K", "", 1,
               "Taking Stock card"),
        Deluxe(Robot + " has decided to take the UpCard trump.", "O.K", "", 1, "Taking trump card"),
        Deluxe(Player +
                   " you are now on Round Two and must follow suit or play a Trump if you do not "
                   "have suit but have a Trump",
               "Right", "", 3, "Round Two"),
        Deluxe("As you are both over target score it will increase by 250 and another hand "
               "played.",
               "O.K", "", 1, "Both over target"),
        Deluxe(Player + " Sorry, you must knock during Round 1. Lorinda might catch you up on "
                        "Trick Scores",
               "Oh Right", "", 3, "Can't Knock Now"),
        Deluxe(Player + " Game not over, but you won that hand with points " + scores, "Right", "",
               1, "Hand Won"),
        Deluxe(
            Player + " Game not over, but unfortunately you lost that hand with points " + scores,
            "Right", "", 1, "Hand Lost"),
        Deluxe(Player + " Game not over, but the hand was a draw with 300 against 300", "Right", "",
               1, "Draw"),
        Deluxe("Your total score is 612 against 587", "O.K", "", 1, "Total Scores"),
        Deluxe(Player + " You have a card of the same suit and must play it.", "Ah Right", "", 3,
               "Must follow suit."),
        Deluxe(Player + " You have a Trump and must play it.", "O.K", "", 3, "You have a Trump"),
        Deluxe(Player + " You really musn't try to look at " + Robot + " card you know!",
               "Just Peeping", "", 3, "Tut Tut"),
        Deluxe(Player + " These cards have been played and are now out of the hand.", "Right", "",
               3, "Cards out of game"),
        Deluxe(Player + " This is the UpCard " + Card + " and the suit is trumps", "Right", "", 3,
               "The Up Card"),
        NoMeld("No Run", "Oh Dear",
               " sorry, you do appear to have a run.Please try again, or Cancel to receive a "
               "card."),
        NoMeld("Already Melded", "Right",
               " you have already melded a Double Pinochle. Please try again or click cancel to "
               "receive another card."),
        NoMeld("No Double Pinochle", "Oh Dear",
               " sorry, you do not have a Double Pinochle. Try again or click Cancel to receive a "
               "card"),
        NoMeld("Already Melded", "Right",
               " you have already melded a Pinochle. Please try again or click cancel to receive "
               "another card."),
        NoMeld(" No Pinochle", "Oh Dear",
               " sorry, you do not have a Single Pinochle. Make different Meld or click Cancel to "
               "receive card."),
        NoMeld("No King.", "Oh Dear",
               " sorry, you do not appear to have a King of that suit. Please try again or click "
               "Cancel to receive a card"),
        NoMeld("No Queen.", "Oh Dear",
               " sorry, you do not appear to have a Queen of that suit. Please try again or click "
               "Cancel to receive a card"),
        NoMeld("No Nine", "Right",
               " sorry, you do not have a Nine to Dix. Please try again or click Cancel to receive "
               "a new card"),
        Plain(" The cards should now play faster, but it will depend on the speed of your "
              "computer to a degree."),
        Plain(" The cards should now play at a medium speed, but it will depend on the speed of "
              "your computer to a degree."),
        Plain(" The cards should now play slowly, but it will depend on the speed of your "
              "computer to a degree."),
        Plain(" You have changed target score to 1000. You can come back and change at any time"),
        Plain(" You have changed the robot to Expert. It will play from the next hand. You can "
              "come back and change at any time"),
        Plain(" You have changed the robot to Classic. You can come back and change at any time"),
        Plain(" If you can read this something wrong, has not found a card"),
        Plain(" Something wrong, no card found"),
        {MessageKind::Question, "If you wish to enter or change the player's name click Yes", "",
         "", "", 0, "New Name"},
        {MessageKind::Question, "If you wish to enter or change your opponents's name click Yes",
         "", "", "", 0, "New Name"},
        {MessageKind::Input, "Please enter player's name.", "", "", "", 0, "Player's Name"},
        {MessageKind::Input, "Please enter opponent's name.", "", "", "", 0, "Opponents's Name"},
    };
    // A missing four names the first suit that is missing.
    for (const char* suit : {"Diamond", "Club", "Heart", "Spade"}) {
        all.push_back(NoMeld(std::string("No ") + suit, "Oh Dear",
                             std::string(" sorry, you do not appear to have a ") + suit +
                                 " of that suit. Please try again or click Cancel to receive a "
                                 "card"));
    }
    return all;
}

}  // namespace

const std::vector<GameMessage>& GameMessages() {
    static const std::vector<GameMessage> all = AllMessages();
    return all;
}

}  // namespace trickhaven
