#include "game/hand_setup.h"

#include "data/data_file.h"
#include "data/robot_file.h"
#include "data/saved_game.h"
#include "game/card_random.h"
#include "game/session.h"
#include "table/deal.h"

namespace trickhaven {

namespace {

constexpr std::array<const char*, 6> kRankNames{"Ace", "Ten", "King", "Queen", "Jack", "Nine"};
constexpr std::array<int, 6> kRankValues{Ace, Ten, King, Queen, Jack, Nine};

void SetTargetTitle(Game& g, const std::string& spelling) {
    g.view.SetTitle(spelling + std::to_string(g.TargetScore));
}

void ShowNames(Game& g) {
    g.view.SetCaption(TableLabel::LblPlayer, g.PlayerName);
    g.view.SetCaption(TableLabel::LblPname, g.PlayerName);
    g.view.SetCaption(TableLabel::LblBName, g.OpponentName);
    g.view.SetCaption(TableLabel::LblBotsName, g.OpponentName);
}

// The first New Game of a run offers back a game left in the middle; one
// declined is forgotten.
void OfferSavedGame(Game& g) {
    const std::optional<GameStanding> saved = ReadSavedGame(g);
    if (!saved) {
        return;
    }
    g.MessageChoice = static_cast<std::int16_t>(g.view.ShowDeluxeMessage(
        g.PlayerName + " Your last game stands at " + std::to_string(saved->PlayerTotal) +
            " against " + std::to_string(saved->OpponentTotal) + " with target score " +
            std::to_string(saved->TargetScore) + ". Carry on with it?",
        "Carry On", "New Game", "", 2, "Saved Game"));
    if (g.MessageChoice == 0) {
        g.ResumedGame = saved;
    } else {
        DropSavedGame(g);
    }
}

// A new game starts at nothing, or at the totals of the game taken up.
void StartStanding(Game& g) {
    const GameStanding standing = g.ResumedGame.value_or(GameStanding{});
    g.PlayerTotal = standing.PlayerTotal;
    g.OpponentTotal = standing.OpponentTotal;
    g.view.SetCaption(TableLabel::LblTotalScoreP, std::to_string(g.PlayerTotal));
    g.view.SetCaption(TableLabel::LblTotScoreC, std::to_string(g.OpponentTotal));
}

}  // namespace

void LoadCardTable(Game& g) {
    // Suits in code order, twelve cards each: every rank twice, Ace first.
    for (int card = 1; card <= CardCount; ++card) {
        const int suit = (card - 1) / 12 + 1;
        const auto rank = static_cast<std::size_t>(((card - 1) % 12) / 2);
        CardRec& rec = Card(g, card);
        rec.Name = std::string(kRankNames[rank]) + " of " + SuitWord(suit);
        rec.Value = kRankValues[rank];
        rec.Suit = suit;
    }
    g.DelayMs = g.GameSpeed;
}

void Form_Load(Game& g) {
    LoadCardTable(g);
    g.PlayerName = "Player";
    g.GameSpeed = 100;
    ReadDataFile(g);
    ReadRobotFile(g);
    g.TargetScore = 1000;
    SetTargetTitle(g, " Target Score ");
    ShowNames(g);
    for (int card = 1; card <= CardCount; ++card) {
        g.view.SetCardVisible(card, true);
        Card(g, card).Place = PlaceStock;
    }
    ShowStock(g);
    g.view.SetPanelText(2, g.PlayerName + " press F2 for new game or use Menu.");
    g.platform.Reseed();
    g.Dealer = RoundHalfEven(g.platform.Random() + 1.0);
}

void MnuNew_Click(Game& g) {
    if (g.GameOn) {
        g.MessageChoice = static_cast<std::int16_t>(
            g.view.ShowDeluxeMessage("You are in the middle of a game. Really start a new one?",
                                     "No Continue", "Yes New Game", "", 2, "Leave this game?"));
        if (g.MessageChoice == 0) {
            return;
        }
        DropSavedGame(g);
    } else {
        // No game on: the idle table of a start, as a game once on runs
        // until the next one begins.
        OfferSavedGame(g);
    }
    g.GameOn = false;
    Abandon(g, SessionRequest::NewGame);
}

void SetUpHand(Game& g) {
    LoadCardTable(g);
    g.PlayerPileLeft = 10440;
    g.OpponentPileLeft = 10440;
    g.PlayerPinochleMade = false;
    g.PlayerDoublePinochleMade = false;
    g.OpponentPinochleMade = false;
    g.OpponentDoublePinochleMade = false;
    for (int card = 1; card <= CardCount; ++card) {
        g.view.SetCardVisible(card, false);
        CardRec& rec = Card(g, card);
        rec.Place = PlaceStock;
        ClearCardFlags(rec);
    }
    if (!g.GameOn) {
        StartStanding(g);
        // A game given up with a panel or the knock up starts clean.
        g.view.SetControlVisible(TableControl::FramDeclare, false);
        g.view.SetControlVisible(TableControl::FramMarriage, false);
        g.view.SetControlVisible(TableControl::LblKnock, false);
    }
    g.PlayerLastMeld = 0;
    g.PlayerLastTrick = 0;
    g.PlayerTotalTricks = 0;
    g.PlayerTotalMelds = 0;
    g.OpponentLastMeld = 0;
    g.OpponentLastTrick = 0;
    g.OpponentTotalTricks = 0;
    g.OpponentTotalMelds = 0;
    for (const TableLabel label :
         {TableLabel::LblLastMeldP, TableLabel::LblLastTrickP, TableLabel::LblTotTricksP,
          TableLabel::LblTotalMeldsP, TableLabel::LbllLastMeldC, TableLabel::LblLastTrickC,
          TableLabel::LblTotTricskC, TableLabel::LblTotMeldsC}) {
        g.view.SetCaption(label, "0");
    }
    g.LastStockCard = 0;
    g.Shown = {};
    g.StockLeft = 0;
    g.MeldDone = false;
    g.view.SetCaption(TableLabel::LblStock, "Stock");
    g.PlayerMayPlay = false;
    g.MeldAwaited = false;
    g.PlayerKnocked = false;
    g.RoundOneOn = false;
    g.RoundTwoOn = false;
    g.RoundOneClosing = false;
    g.MeldCommandRunning = false;
    g.LeadSuit = NoSuit;
    g.FollowSuit = NoSuit;
    g.LeadCard = 0;
    g.FollowCard = 0;
    if (!g.GameOn) {
        const GameStanding standing = g.ResumedGame.value_or(GameStanding{});
        g.HandNumber = standing.HandsPlayed;
        g.view.SetPanelText(4, "Round ");
        g.view.SetPanelText(3, "Tricks");
        g.TargetScore = standing.TargetScore;
        SetTargetTitle(g, "Target Score ");
    }
    g.TrickCount = 0;
    g.TrumpSuit = NoSuit;
    g.UpCard = 0;
    if (!g.GameOn) {
        // A game taken up deals from its saved dealer and seed, against its
        // saved robot: the very deal that was left, and the menu shows that
        // robot from now on. A fresh game draws its seed and saves its start.
        if (g.ResumedGame) {
            g.Dealer = g.ResumedGame->NextDealer == ThePlayer ? TheRobot : ThePlayer;
            g.NextDealSeed = g.ResumedGame->DealSeed;
            if (g.ResumedGame->Robot != g.ChosenRobot) KeepRobotChoice(g, g.ResumedGame->Robot);
            g.ResumedGame.reset();
        } else {
            ChooseDealSeed(g);
            SaveStanding(g);
        }
    }
    // A robot chosen in the menu during a hand sits down here.
    g.Robot = g.ChosenRobot;
    DealHand(g);
}

}  // namespace trickhaven
