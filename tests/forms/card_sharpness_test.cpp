// Card pictures are painted with pixels of their own at every resolution:
// the screen's ratio times the scaling of the window. Each picture is
// rendered once per resolution and shared, and a move repaints only around
// the places that the card leaves and takes.
#include <gtest/gtest.h>

#include <QTest>
#include <map>

#include "forms/card_art.h"
#include "forms/card_picture.h"
#include "forms/sharp_picture.h"
#include "forms_test_support.h"

namespace trickhaven {

namespace {

TEST(PaintRatioTest, IsTheScreensRatioTimesTheScalingInQuarterSteps) {
    // screen ratio, scaling, ratio painted at
    const qreal cases[][3] = {{1.0, 1.0, 1.0},  {2.0, 1.0, 2.0},  {1.0, 1.5, 1.5}, {2.0, 1.5, 3.0},
                              {1.0, 1.2, 1.25}, {1.5, 0.7, 1.25}, {1.0, 0.6, 1.0}};
    for (const auto& c : cases) {
        QImage image(4, 4, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(c[0]);
        QPainter painter(&image);
        painter.scale(c[1], c[1]);
        EXPECT_EQ(PaintRatio(painter), c[2]) << c[0] << " by " << c[1];
    }
}

TEST(SharpPictureTest, FetchesOnceForEachResolutionItIsPaintedAt) {
    std::vector<qreal> asked;
    SharpPicture picture;
    picture.Set(
        [&asked](qreal ratio) {
            asked.push_back(ratio);
            QPixmap pixmap(QSize(10, 10) * ratio);
            pixmap.setDevicePixelRatio(ratio);
            pixmap.fill(Qt::red);
            return pixmap;
        },
        1.0);
    QImage sharp;
    for (qreal ratio : {1.0, 1.0, 2.0, 2.0}) {
        sharp = QImage(QSize(10, 10) * ratio, QImage::Format_ARGB32_Premultiplied);
        sharp.setDevicePixelRatio(ratio);
        sharp.fill(Qt::white);
        QPainter painter(&sharp);
        picture.Paint(painter, QRectF(0, 0, 10, 10));
    }
    EXPECT_EQ(asked, (std::vector<qreal>{1.0, 2.0}));
    EXPECT_EQ(picture.Current().devicePixelRatio(), 2.0);
    EXPECT_EQ(sharp.pixelColor(19, 19), QColor(Qt::red));
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
    }

    CardPicture* Card(int card) {
        return qobject_cast<CardPicture*>(
            FindControl(table, qPrintable(QString("PicCard%1").arg(card))));
    }

    // Serves what the last change left to do, paints above all.
    void PaintedAgain(PaintSpy& spy, int card) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return spy.painted.contains(Card(card)); }, 2000));
        for (int round = 0; round < 5; ++round) {
            QCoreApplication::processEvents();
        }
    }

    PinochleTable table;
    CardArt reference;
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
        const QImage expected = reference.Image(17, ratio).toImage();
        EXPECT_EQ(card->Picture().devicePixelRatio(), ratio);
        EXPECT_EQ(card->Picture().toImage(), expected);
        if (ratio != 1.5) {  // at 1.5 a card's edge falls between device pixels
            const QRect middle(QPoint(20, 30) * ratio, QSize(30, 30) * ratio);
            const QImage shown = canvas.copy(middle.translated(card->pos() * ratio));
            EXPECT_EQ(shown.convertToFormat(QImage::Format_ARGB32),
                      expected.copy(middle).convertToFormat(QImage::Format_ARGB32));
        }
    }
}

TEST_F(CardSharpnessTest, AMoveRepaintsOnlyWhatTheCardLeavesAndTakes) {
    table.SetCardImage(5, 29);
    table.SetCardImage(6, 29);
    table.MoveCard(6, 7500, 7800);
    table.MoveCard(5, 3000, 4500);
    PaintSpy spy(*table.Surface());
    PaintedAgain(spy, 5);
    const qint64 shared = Card(5)->Picture().cacheKey();
    EXPECT_EQ(Card(6)->Picture().cacheKey(), shared);

    const QRect left = Card(5)->geometry();
    spy.painted.clear();
    table.MoveCard(5, 6000, 4500);
    PaintedAgain(spy, 5);
    // The scaled view repaints the rectangle around both places as one, with
    // a little room for the rounding of its update rectangles.
    const QRect touched = left.united(Card(5)->geometry()).adjusted(-3, -3, 3, 3);
    for (const auto& [widget, region] : spy.painted) {
        auto* painted = static_cast<QWidget*>(widget);
        SCOPED_TRACE(painted->objectName().toStdString());
        if (widget == table.Surface()) {
            EXPECT_TRUE((region - touched).isEmpty());
        } else {
            const QPoint corner = painted->mapTo(table.Surface(), QPoint(0, 0));
            EXPECT_TRUE(touched.intersects(QRect(corner, painted->size())));
        }
    }
    EXPECT_FALSE(spy.painted.contains(Card(6)));
    EXPECT_FALSE(spy.painted.contains(FindControl(table, "StatusBar1")));
    // The card kept the very picture it had: nothing was rendered again.
    EXPECT_EQ(Card(5)->Picture().cacheKey(), shared);
}

}  // namespace

}  // namespace trickhaven
