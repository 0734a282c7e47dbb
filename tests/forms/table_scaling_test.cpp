// A window of any size shows the table as one picture: scaled evenly,
// centred, every position in proportion, and clicks landing on the card
// drawn under the pointer.
#include <gtest/gtest.h>

#include <QGraphicsView>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <algorithm>

#include "forms_test_support.h"

namespace trickhaven {

namespace {

constexpr int TableWidth = 859;
constexpr int TableHeight = 812;

class TableScalingTest : public ::testing::Test {
protected:
    void SetUp() override {
        log.Listen(table);
        table.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
        view = table.findChild<QGraphicsView*>();
        ASSERT_NE(view, nullptr);
    }

    // Resizes the window so that the table's room is width by height.
    void GiveRoom(int width, int height) {
        const int menu = table.height() - view->viewport()->height();
        table.resize(width, height + menu);
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return view->viewport()->size() == QSize(width, height); }, 2000));
    }

    // Where a point of the table should show: the table scaled by the
    // smaller of the two ratios and centred in its room, worked out here
    // from the room alone.
    QPointF Expected(QPointF onTable) const {
        const QSize room = view->viewport()->size();
        const qreal scale = std::min(static_cast<qreal>(room.width()) / TableWidth,
                                     static_cast<qreal>(room.height()) / TableHeight);
        const QPointF margin((room.width() - TableWidth * scale) / 2,
                             (room.height() - TableHeight * scale) / 2);
        return QPointF(view->viewport()->mapTo(&table, QPoint(0, 0))) + margin + onTable * scale;
    }

    QWidget* Card(int card) {
        return FindControl(table, qPrintable(QString("PicCard%1").arg(card)));
    }

    PinochleTable table;
    EventLog log;
    QGraphicsView* view = nullptr;
};

const QSize Rooms[] = {
    {TableWidth, TableHeight}, {1288, 1218}, {1718, 1000}, {600, 900}, {500, 430}, {1200, 1624}};

TEST_F(TableScalingTest, AtItsOwnSizeTheTableIsShownPixelForPixel) {
    GiveRoom(TableWidth, TableHeight);
    QWidget* card = Card(4);
    table.MoveCard(4, 5000, 6600);
    EXPECT_EQ(WindowSpot(table, *card, QPoint(0, 0)),
              view->viewport()->mapTo(&table, card->geometry().topLeft()));
    EXPECT_EQ(view->transform(), QTransform());
}

TEST_F(TableScalingTest, EveryPositionKeepsItsProportionAtAnySize) {
    table.MoveCard(10, 1200, 7800);
    table.MoveCard(11, 7000, 1500);
    const char* names[] = {"PicCard10",   "PicCard11",  "PicCard20", "Frame1",     "FrameTricks",
                           "LblBotsName", "LblPlayer0", "LblStock",  "StatusBar1", "Line3"};
    std::vector<QRect> designed;
    for (const char* name : names) {
        designed.push_back(FindControl(table, name)->geometry());
    }
    for (QSize room : Rooms) {
        GiveRoom(room.width(), room.height());
        for (std::size_t k = 0; k < std::size(names); ++k) {
            SCOPED_TRACE(testing::Message()
                         << names[k] << " in " << room.width() << " by " << room.height());
            QWidget* control = FindControl(table, names[k]);
            // Laid out once, by the design: only the picture scales.
            EXPECT_EQ(control->geometry(), designed[k]);
            const QRect onSurface(control->mapTo(table.Surface(), QPoint(0, 0)), control->size());
            const QPointF topLeft = Expected(onSurface.topLeft());
            const QPointF bottomRight = Expected(onSurface.bottomRight() + QPoint(1, 1));
            const QPoint shownTopLeft = WindowSpot(table, *control, QPoint(0, 0));
            const QPoint shownBottomRight = WindowSpot(
                table, *control, QPoint(control->size().width(), control->size().height()));
            EXPECT_NEAR(shownTopLeft.x(), topLeft.x(), 1.5);
            EXPECT_NEAR(shownTopLeft.y(), topLeft.y(), 1.5);
            EXPECT_NEAR(shownBottomRight.x(), bottomRight.x(), 1.5);
            EXPECT_NEAR(shownBottomRight.y(), bottomRight.y(), 1.5);
        }
    }
}

TEST_F(TableScalingTest, AClickAtTheScaledPlaceOfACardSendsThatCard) {
    // Two cards side by side, the second half over the first, as in a hand.
    table.MoveCard(9, 3000, 8000);
    table.MoveCard(21, 3600, 8000);
    table.BringCardToFront(21);
    const QPointF firstsOwnPart(20, 48);   // left of where the second begins
    const QPointF secondsPart(60, 48);     // on the second, over the first
    const QPointF pastTheSecond(120, 48);  // beyond both
    const QPointF firstCorner = QPointF(Card(9)->geometry().topLeft());
    for (QSize room : Rooms) {
        SCOPED_TRACE(testing::Message() << room.width() << " by " << room.height());
        GiveRoom(room.width(), room.height());
        const auto clickAt = [&](QPointF offset) {
            log.events.clear();
            const QPoint spot = Expected(firstCorner + offset).toPoint();
            QTest::mouseClick(table.windowHandle(), Qt::LeftButton, {}, spot);
            return log.events;
        };
        using E = TableEventKind;
        EXPECT_EQ(clickAt(firstsOwnPart), (std::vector<TableEvent>{{E::CardClick, 9}}));
        EXPECT_EQ(clickAt(secondsPart), (std::vector<TableEvent>{{E::CardClick, 21}}));
        EXPECT_TRUE(clickAt(pastTheSecond).empty());
    }
}

TEST_F(TableScalingTest, ButtonsAnswerAtTheirScaledPlace) {
    table.SetControlVisible(TableControl::CmdSort, true);
    QWidget* sort = FindControl(table, "CmdSort");
    const QPointF centre = QPointF(sort->geometry().center());
    for (QSize room : {QSize(1718, 1624), QSize(540, 510)}) {
        GiveRoom(room.width(), room.height());
        log.events.clear();
        QTest::mouseClick(table.windowHandle(), Qt::LeftButton, {}, Expected(centre).toPoint());
        EXPECT_EQ(log.events, std::vector<TableEvent>{TableEvent{TableEventKind::SortClick}});
    }
}

TEST_F(TableScalingTest, ToolTipsShowAtTheScaledPlace) {
    GiveRoom(1400, 1000);
    for (const auto& [name, tip] : {std::pair{"StatusBar1Panel1", "Current Trumps"},
                                    std::pair{"StatusBar1Panel2", "General Information"}}) {
        QWidget* panel = FindControl(table, name);
        const QPoint onSurface = panel->mapTo(table.Surface(), panel->rect().center());
        const QPoint spot = Expected(QPointF(onSurface)).toPoint();
        // The pointer comes over the panel first, as it would on the screen.
        QTest::mouseMove(table.windowHandle(), spot);
        const QPoint inViewport = view->viewport()->mapFrom(&table, spot);
        QHelpEvent ask(QEvent::ToolTip, inViewport, view->viewport()->mapToGlobal(inViewport));
        QCoreApplication::sendEvent(view->viewport(), &ask);
        EXPECT_EQ(QToolTip::text(), tip) << name;
        QToolTip::hideText();
    }
}

}  // namespace

}  // namespace trickhaven
