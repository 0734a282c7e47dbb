// PicCard(i): one card on the table. It has no border, takes the size of its
// picture, keeps its place in twips as the logic set it, and hands a click
// with either mouse button to the table.
#pragma once

#include <QPixmap>
#include <QWidget>

namespace trickhaven {

class CardPicture : public QWidget {
    Q_OBJECT
public:
    CardPicture(int card, QWidget* parent);

    int Card() const { return card_; }
    // The picture of image index 1..49; the accessible name says which.
    void SetPicture(int image, const QPixmap& picture);
    int Image() const { return image_; }

    void MoveTo(int left, int top);
    int Left() const { return left_; }
    int Top() const { return top_; }

signals:
    void clicked(int card);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int card_;
    int image_ = 0;
    QPixmap picture_;
    int left_ = 0;
    int top_ = 0;
    bool pressed_ = false;
};

// The name of a card as the game writes it, "Queen of Spades".
QString CardName(int card);

}  // namespace trickhaven
