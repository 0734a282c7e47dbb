// The table as it opens, what the logic asks of it, and the clicks, menu
// entries and close box it hands back. A window of any size shows the table
// as one picture: scaled evenly, centred, every position in proportion, and
// clicks landing on the control drawn under the pointer; the menu bar and the
// status bar span the window's top and foot.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QGraphicsView>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <map>

#include "forms/card_art.h"
#include "forms/card_picture.h"
#include "forms/table_status_bar.h"
#include "forms_test_support.h"

namespace trickhaven {

namespace {

using E = TableEventKind;
using T = TableEvent;

constexpr int TableWidth = 859;
constexpr int TableHeight = 779;

const QSize Rooms[] = {
    {TableWidth, TableHeight}, {1288, 1218}, {1718, 1000}, {600, 900}, {500, 430}, {1200, 1624}};

class TableViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        log.Listen(table);
        table.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
        view = table.findChild<QGraphicsView*>();
        ASSERT_NE(view, nullptr);
    }

    QWidget* Card(int card) {
        return FindControl(table, qPrintable(QString("PicCard%1").arg(card)));
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
    CardArt art;
    QGraphicsView* view = nullptr;
};

TEST_F(TableViewTest, AtStartOnlyTheStockShowsEveryCardLiesFaceDownOnThePileAndAllAreNamed) {
    for (int k = 0; k <= static_cast<int>(TableControl::CmdSort); ++k) {
        const auto control = static_cast<TableControl>(k);
        EXPECT_EQ(table.IsControlVisible(control), control == TableControl::LblStock) << k;
    }
    for (int card = 1; card <= 48; ++card) {
        EXPECT_TRUE(Card(card)->isVisible() && Card(card)->pos() == QPoint(600, 192) &&
                    Card(card)->accessibleName() == "card back")
            << card;
    }
    // A screen reader finds a name for every control; lines and outlines only
    // decorate the table.
    for (QWidget* control : table.Surface()->findChildren<QWidget*>()) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.contains(QRegularExpression("^(qt_|Line|Shape)"))) {
            continue;
        }
        const QString spoken =
            QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
        EXPECT_FALSE(spoken.trimmed().isEmpty()) << name.toStdString();
    }
}

// Help and About send no event: the forms open them. The close box only asks
// the logic, and the window stays.
TEST_F(TableViewTest, EveryMenuEntryAndTheCloseBoxSendTheirEventsAndF1F2AndCtrlXReachTheirEntries) {
    QSignalSpy help(&table, &PinochleTable::helpRequested);
    QSignalSpy about(&table, &PinochleTable::aboutRequested);
    std::map<QString, QAction*> byKey;
    for (QAction* heading : table.menuBar()->actions()) {
        for (QAction* entry : heading->menu() ? heading->menu()->actions() : QList{heading}) {
            entry->trigger();
            if (!entry->shortcut().isEmpty()) {
                byKey[entry->shortcut().toString()] = entry;
            }
        }
    }
    for (const char* key : {"F2", "Ctrl+X", "F1"}) {
        ASSERT_TRUE(byKey.contains(key)) << key;
        byKey[key]->trigger();
    }
    EXPECT_FALSE(table.close());
    EXPECT_TRUE(table.isVisible());
    EXPECT_EQ(log.events,
              (std::vector<T>{
                  T{E::MenuNewGame}, T{E::MenuExit}, T{E::MenuYourName}, T{E::MenuOpponentName},
                  T{E::MenuViewStatistics}, T{E::MenuDeleteStatistics}, T{E::MenuTarget1000},
                  T{E::MenuTarget750}, T{E::MenuTarget500}, T{E::MenuTarget300}, T{E::MenuReminder},
                  T{E::MenuFast}, T{E::MenuMedium}, T{E::MenuSlow}, T{E::MenuClassic},
                  T{E::MenuExpert}, T{E::MenuNewGame}, T{E::MenuExit}, T{E::CloseBox}}));
    EXPECT_EQ(help.count(), 2);
    EXPECT_EQ(about.count(), 1);
}

// The robot's menu comes last and opens with Alt+R; its two entries share
// one check mark, which the game moves and a click takes, and a screen reader
// hears which is checked and which is not.
TEST_F(TableViewTest, TheRobotsMenuOpensWithItsOwnLetterAndBearsOneCheckMark) {
    QMenu* robots = table.menuBar()->actions().back()->menu();
    ASSERT_NE(robots, nullptr);
    EXPECT_EQ(robots->title(), "&Robot");
    table.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&table));
    QTest::keyClick(&table, Qt::Key_R, Qt::AltModifier);
    EXPECT_EQ(QApplication::activePopupWidget(), robots);
    // What a screen reader says of each entry: its name, "checked" from its
    // state, or "not checked" from its description.
    const auto marks = [&] {
        QAccessibleInterface* menu = QAccessible::queryAccessibleInterface(robots);
        std::vector<std::tuple<QString, bool, QString>> seen;
        for (int i = 0; i < menu->childCount(); ++i) {
            const QAccessibleInterface* entry = menu->child(i);
            seen.emplace_back(entry->text(QAccessible::Name), entry->state().checked,
                              entry->text(QAccessible::Description));
        }
        return seen;
    };
    using Marks = std::vector<std::tuple<QString, bool, QString>>;
    const Marks classic{{"Classic", true, ""}, {"Expert", false, "not checked"}};
    EXPECT_EQ(marks(), classic);
    table.CheckRobot(RobotKind::Expert);
    EXPECT_EQ(marks(), (Marks{{"Classic", false, "not checked"}, {"Expert", true, ""}}));
    robots->actions().front()->trigger();
    EXPECT_EQ(marks(), classic);
    EXPECT_EQ(log.events, std::vector<T>{T{E::MenuClassic}});
    robots->close();
}

// A card takes either mouse button; a press released off it is no click.
TEST_F(TableViewTest, CardsShowFacesOrBacksWhereTheyAreMovedHideAndTakeEitherMouseButton) {
    table.MoveCard(12, 2507, 10080);
    EXPECT_EQ(Card(12)->pos(), QPoint(167, 672));
    for (const auto& [image, name] :
         {std::pair{43, "Queen of Spades"}, std::pair{CardBackImage, "card back"}}) {
        table.SetCardImage(12, image);
        EXPECT_EQ(qobject_cast<CardPicture*>(Card(12))->Picture().toImage(),
                  art.Image(image, Card(12)->devicePixelRatioF()).toImage());
        EXPECT_EQ(Card(12)->accessibleName(), name);
    }
    table.SetCardVisible(12, false);
    EXPECT_FALSE(Card(12)->isVisible());
    QTest::mouseClick(Card(7), Qt::LeftButton);
    QTest::mouseClick(Card(31), Qt::RightButton);
    QTest::mousePress(Card(5), Qt::LeftButton);
    QTest::mouseRelease(Card(5), Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_EQ(log.events, (std::vector<T>{T{E::CardClick, 7}, T{E::CardClick, 31}}));
}

// A card takes its picture at the ratio of what it is painted on, in quarter
// steps, and cards of one face share it.
TEST_F(TableViewTest, CardsOfOneFaceShareOnePicturePerRatio) {
    table.SetCardImage(5, 29);
    table.SetCardImage(6, 29);
    table.MoveCard(6, 7500, 7800);
    const auto* card = qobject_cast<CardPicture*>(Card(5));
    const qreal cases[][3] = {{1, 1, 1}, {2, 1, 2}, {1, 1.2, 1.25}, {1, 1, 1}};
    for (const auto& [screen, scaling, ratio] : cases) {
        QImage canvas(table.Surface()->size() * screen, QImage::Format_ARGB32_Premultiplied);
        canvas.setDevicePixelRatio(screen);
        QPainter painter(&canvas);
        painter.scale(scaling, scaling);
        table.Surface()->render(&painter);
        EXPECT_EQ(card->Picture().toImage(), art.Image(29, ratio).toImage()) << ratio;
        EXPECT_EQ(card->Picture().cacheKey(),
                  qobject_cast<CardPicture*>(Card(6))->Picture().cacheKey());
    }
}

TEST_F(TableViewTest, APanelBroughtToFrontCoversTheOther) {
    table.SetControlVisible(TableControl::FramDeclare, true);
    table.SetControlVisible(TableControl::FramMeldHelp, true);
    for (TableControl control : {TableControl::FramMeldHelp, TableControl::FramDeclare}) {
        table.BringControlToFront(control);
        QWidget* top = table.Surface()->childAt(QPoint(300, 100));
        QWidget* panel = FindControl(table, ControlName(control));
        EXPECT_TRUE(top == panel || panel->isAncestorOf(top)) << ControlName(control);
    }
}

TEST_F(TableViewTest, StatusPanelsShowWhatTheyAreGiven) {
    for (int panel = 1; panel <= 4; ++panel) {
        table.SetPanelText(panel, "text " + std::to_string(panel));
        const auto* shown = table.findChild<StatusPanel*>(QString("StatusBar1Panel%1").arg(panel));
        EXPECT_TRUE(shown && shown->Text() == QString("text %1").arg(panel)) << panel;
    }
    const auto* trumps = table.findChild<StatusPanel*>("StatusBar1Panel1");
    const qreal ratio = trumps->devicePixelRatioF();
    EXPECT_EQ(trumps->Picture().toImage(), CardArt::TrumpPanelPicture(ratio).toImage());
    table.SetPanelPicture(53);
    EXPECT_EQ(trumps->Picture().toImage(), art.Image(53, ratio).toImage());
}

TEST_F(TableViewTest, TheDeluxeMessageRingsAndHoldsTheTableUntilAnswered) {
    // The bell rings before the box shows.
    int rings = 0;
    table.SetMessageRing([&rings] {
        ++rings;
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    });
    table.MoveCard(3, 3000, 6000);
    // A click as the screen delivers it, so that a modal box can stop it.
    const auto clickCardThree = [this] {
        QTest::mouseClick(table.windowHandle(), Qt::LeftButton, {},
                          WindowSpot(table, *Card(3), Card(3)->rect().center()));
    };
    clickCardThree();
    ASSERT_EQ(log.events, (std::vector<T>{T{E::CardClick, 3}}));
    log.events.clear();
    QTimer::singleShot(0, [&clickCardThree] {
        auto* box = qobject_cast<MFormDeluxe*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        clickCardThree();
        QTest::mouseClick(box->findChild<QWidget*>("Label1_1"), Qt::LeftButton);
    });
    EXPECT_EQ(table.ShowDeluxeMessage("Leave?", "Stay", "Go", "", 2, "Really Exit?"), 1);
    EXPECT_EQ(rings, 1);
    EXPECT_TRUE(log.events.empty());
}

// Two cards side by side, the one brought to the front half over the other,
// and the sort button take their clicks where they are drawn.
TEST_F(TableViewTest, EveryPositionKeepsItsProportionAndTakesItsClicksAtAnySize) {
    table.MoveCard(10, 1200, 7800);
    table.MoveCard(11, 7000, 1500);
    table.MoveCard(21, 3000, 8000);
    table.MoveCard(9, 3600, 8000);
    table.BringCardToFront(9);
    table.SetControlVisible(TableControl::CmdSort, true);
    const char* names[] = {"PicCard10",   "PicCard11",  "PicCard20", "Frame1", "FrameTricks",
                           "LblBotsName", "LblPlayer0", "LblStock",  "Line3"};
    QWidget* statusBar = FindControl(table, "StatusBar1");
    std::vector<QRect> designed;
    for (const char* name : names) {
        designed.push_back(FindControl(table, name)->geometry());
    }
    const QPointF corner = QPointF(Card(21)->geometry().topLeft());
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
        EXPECT_EQ(ClickAt(corner + QPointF(20, 48)), (std::vector<T>{{E::CardClick, 21}}));
        EXPECT_EQ(ClickAt(corner + QPointF(60, 48)), (std::vector<T>{{E::CardClick, 9}}));
        EXPECT_TRUE(ClickAt(corner + QPointF(120, 48)).empty());
        EXPECT_EQ(ClickAt(sort), std::vector<TableEvent>{TableEvent{E::SortClick}});
    }
}

// Without a deck of the desktop's card games the pictures are drawn: the two
// cards of a face alike and all faces and the back different.
TEST(CardArtTest, DrawnDeckGivesEveryFace) {
    QTemporaryDir empty;
    CardArt art(empty.path());
    QSet<QByteArray> faces;
    for (int card = 1; card <= CardBackImage; card += 2) {
        const QImage face = art.Image(card, 1.0).toImage();
        if (card < CardBackImage) {
            EXPECT_EQ(face, art.Image(card + 1, 1.0).toImage()) << card;
        }
        faces.insert(
            QByteArray(reinterpret_cast<const char*>(face.constBits()), face.sizeInBytes()));
    }
    EXPECT_EQ(faces.size(), 25);
}

// A picture is rendered once per ratio; only the three ratios asked for
// last are kept.
TEST(CardArtTest, EachPictureIsRenderedOncePerRatioOfTheLastThree) {
    QTemporaryDir empty;
    CardArt art(empty.path());
    const qint64 first = art.Image(12, 1.0).cacheKey();
    const qint64 second = art.Image(12, 1.5).cacheKey();
    EXPECT_NE(first, second);
    art.Image(12, 2.0);
    // Asking again makes 1.0 the newest; 1.5 is then the oldest and goes.
    EXPECT_EQ(art.Image(12, 1.0).cacheKey(), first);
    art.Image(3, 2.25);
    EXPECT_EQ(art.Image(12, 1.0).cacheKey(), first);
    EXPECT_NE(art.Image(12, 1.5).cacheKey(), second);
}

}  // namespace

}  // namespace trickhaven
