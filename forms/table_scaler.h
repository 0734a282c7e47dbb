// The table as one picture: a widget of fixed size, shown scaled to fill the
// window while it keeps its proportions. Nothing on it is laid out anew, so
// every position keeps its place relative to the others, and a click lands
// on what is drawn under the pointer. At the table's own size the scale is
// exactly one, pixel for pixel; the room left over on two sides shows the
// table's colour.
#pragma once

#include <QGraphicsView>

namespace trickhaven {

class TableScaler : public QGraphicsView {
    Q_OBJECT
public:
    // Takes the picture over; its size is fixed from here on.
    TableScaler(QWidget* picture, QWidget* parent);

    // Window pixels per pixel of the table.
    qreal Scale() const { return transform().m11(); }
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize pictureSize_;
};

}  // namespace trickhaven
