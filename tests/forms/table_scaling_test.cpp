// A window of any size shows the table as one picture: scaled evenly,
// centred, every position in proportion, and clicks landing on the control
// drawn under the pointer; the menu bar and the status bar span the window's
// top and foot.
#include <gtest/gtest.h>

#include <QGraphicsView>
#include <QMenuBar>
#include <QTest>
#include <algorithm>

#include "forms_test_support.h"

namespace trickhaven {

namespace {

constexpr int TableWidth = 859;
constexpr int TableHeight = 779;

const QSize Rooms[] = {
    {TableWidth, TableHeight}, {1288, 1218}, {1718, 1000}, {600, 900}, {500, 430}, {1200, 1624}};

class TableScalingTest : public ::testing::Test {
protected:
    void SetUp() override {
        log.Listen(table);
        table.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
        view = table.findChild<QGraphicsView*>();
        ASSERT_NE(view, nullptr);
    }

    // Resizes the window so that the table's room is the given size.
    void GiveRoom(QSize room) {
        const int bars = table.height() - view->viewport()->height();
        table.resize(room.width(), room.height() + bars);
        ASSERT_TRUE(QTest::qWaitFor([&] { return view->viewport()->size() == room; }, 2000));
    }

    // Where a point of the surface should show: scaled by the smaller of the
    // two ratios and centred in the room, worked out from the room alone.
    QPointF Expected(QPointF onTable) const {
        const QSize room = view->viewport()->size();
        const qreal scale = std::min(static_cast<qreal>(room.width()) / TableWidth,
                                     static_cast<qreal>(room.height()) / TableHeight);
        const QPointF margin((room.width() - TableWidth * scale) / 2,
                             (room.height() - TableHeight * scale) / 2);
        return QPointF(view->viewport()->mapTo(&table, QPoint(0, 0))) + margin + onTable * scale;
    }

    std::vector<TableEvent> ClickAt(QPointF onTable) {
        log.events.clear();
        QTest::mouseClick(table.windowHandle(), Qt::LeftButton, {}, Expected(onTable).toPoint());
        return log.events;
    }

    PinochleTable table;
    EventLog log;
    QGraphicsView* view = nullptr;
};

// Two cards side by side, the second half over the first as in a hand, and
// the sort button take their clicks where they are drawn.
TEST_F(TableScalingTest, EveryPositionKeepsItsProportionAndTakesItsClicksAtAnySize) {
    using E = TableEventKind;
    table.MoveCard(10, 1200, 7800);
    table.MoveCard(11, 7000, 1500);
    table.MoveCard(9, 3000, 8000);
    table.MoveCard(21, 3600, 8000);
    table.BringCardToFront(21);
    table.SetControlVisible(TableControl::CmdSort, true);
    const char* names[] = {"PicCard10",   "PicCard11",  "PicCard20", "Frame1", "FrameTricks",
                           "LblBotsName", "LblPlayer0", "LblStock",  "Line3"};
    QWidget* statusBar = FindControl(table, "StatusBar1");
    std::vector<QRect> designed;
    for (const char* name : names) {
        designed.push_back(FindControl(table, name)->geometry());
    }
    const QPointF corner = QPointF(FindControl(table, "PicCard9")->geometry().topLeft());
    const QPointF sort = QPointF(FindControl(table, "CmdSort")->geometry().center());
    for (QSize room : Rooms) {
        SCOPED_TRACE(testing::Message() << room.width() << " by " << room.height());
        GiveRoom(room);
        EXPECT_EQ(view->transform().isIdentity(), room == Rooms[0]);
        const int menu = table.menuBar()->height();
        EXPECT_EQ(table.menuBar()->geometry(), QRect(0, 0, table.width(), menu));
        EXPECT_EQ(QRect(statusBar->mapTo(&table, QPoint(0, 0)), statusBar->size()),
                  QRect(0, menu + room.height(), table.width(), 33));
        EXPECT_EQ(FindControl(table, "StatusBar1Panel4")->geometry().right() + 1, table.width());
        for (std::size_t k = 0; k < std::size(names); ++k) {
            SCOPED_TRACE(names[k]);
            QWidget* control = FindControl(table, names[k]);
            // Laid out once, by the design: only the picture scales.
            EXPECT_EQ(control->geometry(), designed[k]);
            const QPoint origin = control->mapTo(table.Surface(), QPoint(0, 0));
            for (const QPoint& offset :
                 {QPoint(0, 0), QPoint(control->width(), control->height())}) {
                const QPointF expected = Expected(origin + offset);
                const QPoint shown = WindowSpot(table, *control, offset);
                EXPECT_NEAR(shown.x(), expected.x(), 1.5);
                EXPECT_NEAR(shown.y(), expected.y(), 1.5);
            }
        }
        EXPECT_EQ(ClickAt(corner + QPointF(20, 48)), (std::vector<TableEvent>{{E::CardClick, 9}}));
        EXPECT_EQ(ClickAt(corner + QPointF(60, 48)), (std::vector<TableEvent>{{E::CardClick, 21}}));
        EXPECT_TRUE(ClickAt(corner + QPointF(120, 48)).empty());
        EXPECT_EQ(ClickAt(sort), std::vector<TableEvent>{TableEvent{E::SortClick}});
    }
}

}  // namespace

}  // namespace trickhaven
