#include "forms/card_picture.h"

#include <QMouseEvent>
#include <QPainter>
#include <array>

#include "forms/table_view.h"
#include "forms/twips.h"
#include "game/card_table.h"

namespace trickhaven {

QString CardName(int card) {
    // Suits in code order, twelve cards each: every rank twice, Ace first.
    constexpr std::array<const char*, 6> ranks{"Ace", "Ten", "King", "Queen", "Jack", "Nine"};
    const int suit = (card - 1) / 12 + 1;
    const auto rank = static_cast<std::size_t>(((card - 1) % 12) / 2);
    return QString("%1 of %2").arg(ranks[rank], QString::fromStdString(SuitWord(suit)));
}

CardPicture::CardPicture(int card, QWidget* parent) : QWidget(parent), card_(card) {}

void CardPicture::SetPicture(int image, const QPixmap& picture) {
    image_ = image;
    picture_ = picture;
    resize(picture.deviceIndependentSize().toSize());
    setAccessibleName(image == CardBackImage ? QStringLiteral("card back") : CardName(image));
    update();
}

void CardPicture::MoveTo(int left, int top) {
    left_ = left;
    top_ = top;
    move(TwipsToPixels(left, top));
}

void CardPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
}

void CardPicture::mousePressEvent(QMouseEvent*) {
    pressed_ = true;
}

void CardPicture::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = pressed_ && rect().contains(event->position().toPoint());
    pressed_ = false;
    if (click) {
        emit clicked(card_);
    }
}

}  // namespace trickhaven
