// The keys of the table in the window: the hand's cards and the controls
// take the focus in the order the game's keyboard rules give, each key is
// handed to the logic as the very click it stands for, and the focused card
// wears a ring only while the keyboard is in use.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWidget>
#include <array>
#include <functional>

#include "forms/table_view.h"
#include "game/table_keys.h"
#include "game/table_review.h"

namespace trickhaven {

class CardPicture;

// A ring round the focused card or label, drawn over every card so that a
// card half covered in a meld row shows it too. Clicks pass through it.
class FocusRing : public QWidget {
    Q_OBJECT
public:
    explicit FocusRing(QWidget* parent);
    void Surround(const QRect& target);

protected:
    void paintEvent(QPaintEvent* event) override;
};

class TableKeyboard : public QObject {
    Q_OBJECT
public:
    using Send = std::function<void(const TableEvent&)>;
    using ControlByName = std::function<QWidget*(const char*)>;

    TableKeyboard(QWidget& surface, QWidget& keyTaker,
                  const std::array<CardPicture*, CardCount + 1>& cards, ControlByName control,
                  Send send);

    // The game whose hand the keys walk; without one the keys do nothing.
    void SetGame(const Game* game);
    // Where the review's letters go, with the cards as the table shows them.
    using Review = std::function<void(ReviewKind, const TableSight&)>;
    void SetReview(Review review) { review_ = std::move(review); }
    // A card picture changed: the focus follows the hand once the logic
    // next serves events.
    void HandChanged();
    // A card is about to be hidden; if it had the focus, the focus moves on
    // first, to the neighbour the rules give.
    void CardHiding(int card);
    // A card or a panel came to the front: the ring stays on top.
    void Raised();
    bool KeyboardInUse() const { return keyboardInUse_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TakesKeys(QObject* watched) const;
    bool KeyPressed(QKeyEvent& key);
    void Refresh();
    void TakeFocusFromWidget();
    void GiveFocus();
    void PlaceRing();
    void SetKeyboardInUse(bool inUse);
    QWidget* StopWidget(TableStop stop) const;
    TableSight Sight() const;

    QWidget& surface_;
    QWidget& keyTaker_;
    const std::array<CardPicture*, CardCount + 1>& cards_;
    ControlByName control_;
    Send send_;
    Review review_;
    const Game* game_ = nullptr;
    TableFocus focus_;
    FocusRing* ring_;
    bool keyboardInUse_ = false;
    bool refreshPending_ = false;
};

}  // namespace trickhaven
