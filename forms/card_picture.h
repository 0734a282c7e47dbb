// PicCard(i): one card on the table. It has no border, takes the size of its
// picture, keeps its place in twips as the logic set it, and hands a click
// with either mouse button to the table. Its picture comes from the table's
// card art, rendered once per resolution and shared by every card showing
// the same image.
#pragma once

#include <QWidget>
#include <functional>

#include "forms/sharp_picture.h"
#include "forms/table_access.h"

namespace trickhaven {

class CardArt;

class CardPicture : public QWidget {
    Q_OBJECT
public:
    CardPicture(int card, CardArt& art, QWidget* parent);

    int Card() const { return card_; }
    // Shows image index 1..49; the accessible name says which.
    void SetImage(int image);
    int Image() const { return image_; }
    // The picture as last painted, at the resolution it was painted at.
    const QPixmap& Picture() const { return picture_.Current(); }

    void MoveTo(int left, int top);
    int Left() const { return left_; }
    int Top() const { return top_; }

    // Where the card stands for the player, asked of the game.
    std::function<CardStanding()> standing;
    CardStanding Standing() const { return standing ? standing() : CardStanding{}; }
    // What a click on the card does, for assistive technology's press.
    void Press() { emit clicked(card_); }

signals:
    void clicked(int card);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int card_;
    CardArt& art_;
    int image_ = 0;
    SharpPicture picture_;
    int left_ = 0;
    int top_ = 0;
    bool pressed_ = false;
};

// The name of a card as the game writes it, "Queen of Spades".
QString CardName(int card);

}  // namespace trickhaven
