#include "forms/help_design.h"

#include <array>

namespace trickhaven {

namespace {

// The card table runs Diamonds, Clubs, Hearts, Spades, twelve cards a suit,
// two of each rank from the Ace down to the Nine.
enum Suit { D, C, H, S };
enum Rank { Ace, Ten, King, Queen, Jack, Nine };

constexpr int Card(Rank rank, Suit suit) {
    return suit * 12 + rank * 2 + 1;
}

HelpPageDesign PageOne() {
    return {
        .name = "FrmHelp",
        .title = "Pinochle Help Page 1",
        .width = 11310,
        .height = 9945,
        .points = 13.5,
        .keepsPrint = false,
        .buttons = {{"CmdExitHelp", 4200, 9360, 1692, 372, 0, "E&xit", "", 0},
                    {"CmdGioHelp2", 6120, 9360, 1692, 372, 0, "Page &2 Help", "", 2}},
        .pictures = {{"Image1", 2160, 3600, Card(Ace, D)},
                     {"Image2", 3360, 3600, Card(Ten, D)},
                     {"Image3", 4680, 3600, Card(King, D)},
                     {"Image4", 5880, 3600, Card(Queen, D)},
                     {"Image5", 7080, 3600, Card(Jack, D)},
                     {"Image6", 8280, 3600, Card(Nine, D)}},
        .labels = {},
    };
}

HelpPageDesign PageTwo() {
    return {
        .name = "FrmHelp2",
        .title = "Bezique Help Page Two",
        .width = 12120,
        .height = 10590,
        .points = 12,
        .keepsPrint = false,
        .buttons = {{"CmdBackPage1", 5160, 10200, 1572, 372, 13.5, "Page 1 Help",
                     "Click for first page of help", 1},
                    {"CmdExtPage2", 7080, 10200, 1572, 372, 13.5, "Exit Help",
                     "Click here to leave Help file", 0},
                    {"CmdPage3", 9240, 10200, 1572, 372, 13.5, "Page 3 Help",
                     "Click to go to last help page", 3}},
        .pictures =
            {{"Image1", 8520, 2040, Card(Ace, D)},     {"Image3", 7200, 3240, Card(King, D)},
             {"Image4", 7920, 3240, Card(Queen, D)},   {"Image19", 9240, 3240, Card(King, H)},
             {"Image20", 9960, 3240, Card(Queen, H)},  {"Image6", 6600, 4800, Card(Ace, D)},
             {"Image2", 6960, 4800, Card(Ten, D)},     {"Image8", 7320, 4800, Card(Jack, D)},
             {"Image7", 7800, 4800, Card(Queen, D)},   {"Image5", 8160, 4800, Card(King, D)},
             {"Image15", 3600, 6240, Card(Ace, D)},    {"Image16", 4080, 6240, Card(Ace, S)},
             {"Image17", 4560, 6240, Card(Ace, H)},    {"Image18", 5040, 6240, Card(Ace, C)},
             {"Image13", 6720, 6240, Card(Queen, S)},  {"Image14", 7080, 6240, Card(Jack, D)},
             {"Image11", 7800, 6240, Card(Queen, S)},  {"Image12", 8280, 6240, Card(Jack, D)},
             {"Image10", 9960, 6240, Card(Queen, S)},  {"Image9", 10320, 6240, Card(Jack, D)},
             {"Image25", 3720, 8160, Card(King, D)},   {"Image28", 4200, 8160, Card(King, H)},
             {"Image27", 4680, 8160, Card(King, C)},   {"Image26", 5160, 8160, Card(King, S)},
             {"Image24", 6960, 7920, Card(Jack, C)},   {"Image23", 7440, 7920, Card(Jack, D)},
             {"Image21", 7800, 7920, Card(Jack, H)},   {"Image22", 8280, 7920, Card(Jack, S)},
             {"Image31", 9480, 8040, Card(Queen, S)},  {"Image30", 9840, 8040, Card(Queen, H)},
             {"Image29", 10200, 8040, Card(Queen, S)}, {"Image32", 10560, 8040, Card(Queen, D)}},
        .labels = {{"LblTrumps", 8400, 3000, 912, 240, "Trumps"},
                   {"LblRM", 7080, 4080, 1632, 600, "Royal Marriage 40 points"},
                   {"Label2", 9120, 4080, 1632, 600, "Common Marriage 20 points"},
                   {"LblSequence", 6480, 5640, 2532, 372, "Trumps Run 150 points"},
                   {"Label1", 3480, 7080, 2172, 492, "Any Four Aces 100 points"},
                   {"LblDBezique", 6720, 7080, 2292, 492, "Double Pinochle  500 points"},
                   {"LblBezique", 9600, 7080, 1632, 516, " Pinochle 40 points"},
                   {"Lbl4kingss", 3720, 9000, 2172, 492, "Any Four Kings 80 points"},
                   {"LblJacks", 6960, 8880, 2052, 492, "Any Four Jacks 40 points"},
                   {"LblQueens", 9480, 8880, 1812, 492, "Any Four Queens 60 points"}},
    };
}

HelpPageDesign PageThree() {
    return {
        .name = "FrmHelp3",
        .title = "Bezique Help Page 3",
        .width = 12030,
        .height = 11460,
        .points = 12,
        .keepsPrint = true,
        .buttons = {{"CmdBack2", 4200, 11040, 1692, 372, 0, "Return Page 2",
                     "Click to return to page 2", 2},
                    {"CmdExit3", 6360, 11040, 1572, 372, 0, "Exit Help", "Exit all Help files", 0}},
        .pictures = {},
        .labels = {},
    };
}

}  // namespace

const HelpPageDesign& HelpDesign(int page) {
    static const std::array<HelpPageDesign, 3> designs{PageOne(), PageTwo(), PageThree()};
    return designs.at(static_cast<std::size_t>(page - 1));
}

}  // namespace trickhaven
