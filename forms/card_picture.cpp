#include "forms/card_picture.h"

#include <QMouseEvent>
#include <array>

#include "forms/card_art.h"
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

CardPicture::CardPicture(int card, CardArt& art, QWidget* parent)
    : QWidget(parent), card_(card), art_(art) {}

void CardPicture::SetImage(int image) {
    // The logic lays whole hands afresh; a card that keeps its face is left
    // alone rather than painted again.
    if (image == image_) {
        return;
    }
    image_ = image;
    resize(CardArt::ImageSize(image));
    CardArt* art = &art_;
    picture_.Set([art, image](qreal ratio) { return art->Image(image, ratio); },
                 devicePixelRatioF());
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
    picture_.Paint(painter, rect());
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
