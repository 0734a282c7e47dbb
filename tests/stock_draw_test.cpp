// The robot's choice of the last two cards of Round One.
#include "round_one/stock_draw.h"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/meld_fixtures.h"

namespace trickhaven {
namespace {

TEST(TakeLastStock, RobotTakesTheStockCardOnlyAsAHigherTrumpOverNoAceOrTen) {
    // The up card, the last stock card, whether the robot takes the latter.
    for (const auto& [what, up, last, takesStock] :
         {std::tuple{"trump ace above a trump king", KH, AH, true},
          {"turned-up ten kept above the ace", TH, AH, false},
          {"turned-up ace kept", AH, Second(AH), false},
          {"equal trump not taken", KH, Second(KH), false},
          {"lower trump not taken", QH, JH, false},
          {"plain ace never taken", NH, CardIndex(Ace, Clubs), false}}) {
        SCOPED_TRACE(what);
        RoundOneTable t(Hearts, up, 12);
        Card(t.g, last).Place = PlaceStock;
        t.g.LastStockCard = last;
        TakeLastStock(t.g);
        EXPECT_EQ(Told(t.hg.table).at(0),
                  takesStock ? "Taking Stock card [O.K||] 1: Lorinda has decided to take the last "
                               "Stock card."
                             : "Taking trump card [O.K||] 1: Lorinda has decided to take the "
                               "UpCard trump.");
        EXPECT_EQ(Card(t.g, takesStock ? last : up).Place, PlaceOpponentHand);
        EXPECT_EQ(Card(t.g, takesStock ? up : last).Place, PlacePlayerHand);
    }
}

}  // namespace
}  // namespace trickhaven
