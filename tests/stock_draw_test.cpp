// The robot's choice of the last two cards of Round One.
#include "round_one/stock_draw.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

TEST(TakeLastStock, RobotTakesTheStockCardOnlyAsAHigherTrumpOverNoAceOrTen) {
    const std::tuple<std::string, std::string> stock{
        "Lorinda has decided to take the last Stock card.", "Taking Stock card"};
    const std::tuple<std::string, std::string> up{"Lorinda has decided to take the UpCard trump.",
                                                  "Taking trump card"};
    // The up card, the last stock card, whether the robot takes the latter.
    for (const auto& [what, upCard, last, takesStock] :
         {std::tuple{"trump ace above a trump king", KH, AH, true},
          {"turned-up ten kept above the ace", TH, AH, false},
          {"turned-up ace kept", AH, Second(AH), false},
          {"equal trump not taken", KH, Second(KH), false},
          {"lower trump not taken", QH, JH, false},
          {"plain ace never taken", NH, CardIndex(Ace, Clubs), false}}) {
        SCOPED_TRACE(what);
        RoundOneTable t(Hearts, upCard, 12);
        Card(t.g, last).Place = PlaceStock;
        t.g.LastStockCard = last;
        TakeLastStock(t.g);
        const MessageRecord& box = t.hg.table.Messages().at(0);
        EXPECT_EQ(std::tuple(box.text, box.title), takesStock ? stock : up);
        EXPECT_EQ(std::tuple(box.buttons[0] + box.buttons[1] + box.buttons[2], box.icon),
                  std::tuple("O.K", 1));
        // The robot's card flies first.
        const int robots = takesStock ? last : upCard, players = takesStock ? upCard : last;
        EXPECT_EQ(std::tuple(Card(t.g, robots).Place, Card(t.g, players).Place),
                  std::tuple(PlaceOpponentHand, PlacePlayerHand));
        EXPECT_EQ(t.hg.table.timeline.at(1), "700 move " + std::to_string(robots) + " 2820 2280");
    }
}

}  // namespace
}  // namespace trickhaven
