// Card pictures are painted with pixels of their own at every resolution:
// the screen's ratio times the scaling of the window. Each picture is
// rendered once per resolution and shared, and a move repaints only around
// the places that the card leaves and takes.
#include <gtest/gtest.h>

#include <QGraphicsView>
#include <QTest>
#include <map>

#include "forms/card_art.h"
#include "forms/card_picture.h"
#include "forms/sharp_picture.h"
#include "forms_test_support.h"

namespace trickhaven {

namespace {

qreal RatioOf(qreal screen, qreal scale) {
    QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(screen);
    QPainter painter(&image);
    painter.scale(scale, scale);
    return PaintRatio(painter);
}

TEST(PaintRatioTest, IsTheScreensRatioTimesTheScalingInQuarterSteps) {
    EXPECT_EQ(RatioOf(1.0, 1.0), 1.0);
    EXPECT_EQ(RatioOf(1.5, 1.0), 1.5);
    EXPECT_EQ(RatioOf(2.0, 1.0), 2.0);
    EXPECT_EQ(RatioOf(1.0, 1.5), 1.5);
    EXPECT_EQ(RatioOf(2.0, 1.5), 3.0);
    EXPECT_EQ(RatioOf(1.0, 1.2), 1.25);
    EXPECT_EQ(RatioOf(1.5, 0.7), 1.25);
    EXPECT_EQ(RatioOf(1.0, 0.6), 1.0);
}

// A source that says how often it was asked, and at what ratio.
struct CountingSource {
    std::vector<qreal> asked;

    SharpPicture::Source Source() {
        return [this](qreal ratio) {
            asked.push_back(ratio);
            QPixmap pixmap(QSize(10, 10) * ratio);
            pixmap.setDevicePixelRatio(ratio);
            pixmap.fill(Qt::red);
            return pixmap;
        };
    }
};

QImage PaintedAt(SharpPicture& picture, qreal ratio) {
    QImage canvas(QSize(10, 10) * ratio, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    picture.Paint(painter, QRectF(0, 0, 10, 10));
    return canvas;
}

TEST(SharpPictureTest, FetchesOnceForEachResolutionItIsPaintedAt) {
    CountingSource source;
    SharpPicture picture;
    picture.Set(source.Source(), 1.0);
    EXPECT_EQ(source.asked, std::vector<qreal>{1.0});
    PaintedAt(picture, 1.0);
    PaintedAt(picture, 1.0);
    EXPECT_EQ(source.asked, std::vector<qreal>{1.0});

    const QImage sharp = PaintedAt(picture, 2.0);
    EXPECT_EQ(source.asked, (std::vector<qreal>{1.0, 2.0}));
    EXPECT_EQ(picture.Current().devicePixelRatio(), 2.0);
    EXPECT_EQ(sharp.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(sharp.pixelColor(19, 19), QColor(Qt::red));
    PaintedAt(picture, 2.0);
    EXPECT_EQ(source.asked.size(), 2U);
}

// Collects the paint events of the table's surface and everything on it.
class PaintSpy : public QObject {
public:
    explicit PaintSpy(QWidget& surface) {
        surface.installEventFilter(this);
        for (QWidget* child : surface.findChildren<QWidget*>()) {
            child->installEventFilter(this);
        }
    }

    std::map<QObject*, QRegion> painted;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted[watched] += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

class CardSharpnessTest : public ::testing::Test {
protected:
    void SetUp() override {
        table.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&table));
        view = table.findChild<QGraphicsView*>();
        ASSERT_NE(view, nullptr);
    }

    CardPicture* Card(int card) {
        return qobject_cast<CardPicture*>(
            FindControl(table, qPrintable(QString("PicCard%1").arg(card))));
    }

    // Serves what the last change left to do, paints above all.
    static void Settle() {
        for (int round = 0; round < 5; ++round) {
            QCoreApplication::processEvents();
        }
    }

    PinochleTable table;
    CardArt reference;
    QGraphicsView* view = nullptr;
};

TEST_F(CardSharpnessTest, CardsTakePicturesAtTheRatioOfWhatTheyArePaintedOn) {
    table.MoveCard(3, 3000, 4500);
    table.SetCardImage(3, 17);
    CardPicture* card = Card(3);
    for (qreal ratio : {1.0, 1.5, 2.0}) {
        SCOPED_TRACE(testing::Message() << "ratio " << ratio);
        QImage canvas(table.Surface()->size() * ratio, QImage::Format_ARGB32_Premultiplied);
        canvas.setDevicePixelRatio(ratio);
        table.Surface()->render(&canvas);
        EXPECT_EQ(card->Picture().devicePixelRatio(), ratio);
        const QImage expected = reference.Image(17, ratio).toImage();
        EXPECT_EQ(card->Picture().toImage(), expected);
        if (ratio == 1.5) {
            continue;  // a card's edge falls between device pixels there
        }
        // The middle of the card, pixel for pixel as rendered at that ratio.
        const QRect middle(QPoint(20, 30) * ratio, QSize(30, 30) * ratio);
        const QImage shown = canvas.copy(middle.translated(card->pos() * ratio));
        EXPECT_EQ(shown.convertToFormat(QImage::Format_ARGB32),
                  expected.copy(middle).convertToFormat(QImage::Format_ARGB32));
    }
}

TEST_F(CardSharpnessTest, AResizedWindowPaintsCardsAtItsResolution) {
    table.SetCardImage(8, 8);
    table.MoveCard(8, 3000, 4500);
    const int menu = table.height() - view->viewport()->height();
    for (const auto& [room, ratio] :
         {std::pair{QSize(1289, 1218), 1.5}, std::pair{QSize(1718, 1624), 2.0},
          std::pair{QSize(601, 568), 1.0}, std::pair{QSize(859, 812), 1.0}}) {
        table.resize(room.width(), room.height() + menu);
        ASSERT_TRUE(QTest::qWaitFor([&] { return view->viewport()->size() == room; }, 2000));
        view->viewport()->grab();
        EXPECT_EQ(Card(8)->Picture().devicePixelRatio(), ratio);
        EXPECT_EQ(Card(8)->Picture().toImage(), reference.Image(8, ratio).toImage());
    }
}

TEST_F(CardSharpnessTest, AMoveRepaintsOnlyWhatTheCardLeavesAndTakes) {
    table.SetCardImage(5, 29);
    table.SetCardImage(6, 29);
    table.MoveCard(6, 7500, 7800);
    table.MoveCard(5, 3000, 4500);
    PaintSpy spy(*table.Surface());
    ASSERT_TRUE(QTest::qWaitFor([&] { return spy.painted.contains(Card(5)); }, 2000));
    Settle();
    const qint64 shared = Card(5)->Picture().cacheKey();
    EXPECT_EQ(Card(6)->Picture().cacheKey(), shared);

    const QRect left = Card(5)->geometry();
    spy.painted.clear();
    table.MoveCard(5, 6000, 4500);
    ASSERT_TRUE(QTest::qWaitFor([&] { return spy.painted.contains(Card(5)); }, 2000));
    Settle();
    const QRect taken = Card(5)->geometry();
    ASSERT_NE(left, taken);

    // The scaled view repaints the rectangle around both places as one, with
    // a little room for the rounding of its update rectangles.
    const QRect touched = left.united(taken).adjusted(-3, -3, 3, 3);
    for (const auto& [widget, region] : spy.painted) {
        auto* painted = static_cast<QWidget*>(widget);
        SCOPED_TRACE(painted->objectName().toStdString());
        if (widget == table.Surface()) {
            EXPECT_TRUE((region - touched).isEmpty());
            continue;
        }
        const QPoint corner = painted->mapTo(table.Surface(), QPoint(0, 0));
        EXPECT_TRUE(touched.intersects(QRect(corner, painted->size())));
    }
    EXPECT_FALSE(spy.painted.contains(Card(6)));
    EXPECT_FALSE(spy.painted.contains(FindControl(table, "Frame1")));
    EXPECT_FALSE(spy.painted.contains(FindControl(table, "StatusBar1")));
    // The card kept the very picture it had: nothing was rendered again.
    EXPECT_EQ(Card(5)->Picture().cacheKey(), shared);
}

}  // namespace

}  // namespace trickhaven
