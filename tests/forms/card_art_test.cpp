#include "forms/card_art.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>

namespace trickhaven {
namespace {

QSize LogicalSize(int index) {
    if (index <= 48) {
        return {71, 96};
    }
    return index == 49 ? QSize(72, 98) : QSize(32, 32);
}

int StronglyRedPixels(const QPixmap& pixmap) {
    const QImage image = pixmap.toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() > 200 && c.red() > 150 && c.green() < 90 && c.blue() < 90) {
                ++count;
            }
        }
    }
    return count;
}

// The checks that any deck must pass, installed or drawn.
void ExpectAWholeDeck(CardArt& art) {
    for (qreal ratio : {1.0, 1.5, 2.0}) {
        for (int index = 1; index <= 53; ++index) {
            SCOPED_TRACE(testing::Message() << "image " << index << " at " << ratio);
            const QPixmap picture = art.Image(index, ratio);
            ASSERT_FALSE(picture.isNull());
            EXPECT_EQ(picture.devicePixelRatio(), ratio);
            EXPECT_EQ(picture.deviceIndependentSize().toSize(), LogicalSize(index));
        }
    }
    std::vector<QImage> faces;
    for (int card = 1; card <= 47; card += 2) {
        SCOPED_TRACE(testing::Message() << "card " << card);
        const QImage face = art.Image(card, 1.0).toImage();
        EXPECT_EQ(face, art.Image(card + 1, 1.0).toImage());
        for (const QImage& other : faces) {
            EXPECT_NE(face, other);
        }
        faces.push_back(face);
    }
    // Suits run Diamonds, Clubs, Hearts, Spades; the Ace, Ten and Nine show
    // only their suit's colour.
    for (int suit = 0; suit < 4; ++suit) {
        const bool red = suit == 0 || suit == 2;
        for (int rank : {0, 1, 5}) {
            const int card = suit * 12 + rank * 2 + 1;
            SCOPED_TRACE(testing::Message() << "card " << card);
            EXPECT_EQ(StronglyRedPixels(art.Image(card, 1.0)) > 20, red);
        }
    }
    EXPECT_NE(art.Image(49, 1.0).toImage(), art.Image(1, 1.0).toImage());
    for (int icon = 50; icon < 53; ++icon) {
        EXPECT_NE(art.Image(icon, 1.0).toImage(), art.Image(icon + 1, 1.0).toImage());
    }
}

TEST(CardArtTest, InstalledDeckGivesEveryPicture) {
    CardArt art;
    if (!art.UsesInstalledDeck()) {
        GTEST_SKIP() << "no card deck of the desktop's card games is installed";
    }
    ExpectAWholeDeck(art);
}

TEST(CardArtTest, DrawnDeckStandsInWhenTheFolderHasNoUsableDeck) {
    QTemporaryDir empty;
    ASSERT_TRUE(empty.isValid());
    CardArt noDeck(empty.path());
    EXPECT_FALSE(noDeck.UsesInstalledDeck());
    ExpectAWholeDeck(noDeck);

    QTemporaryDir broken;
    QFile file(broken.filePath(QStringLiteral("tango.svgz")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("not a deck");
    file.close();
    CardArt brokenDeck(broken.path());
    EXPECT_FALSE(brokenDeck.UsesInstalledDeck());
    EXPECT_EQ(brokenDeck.Image(7, 1.0).toImage(), noDeck.Image(7, 1.0).toImage());
}

TEST(CardArtTest, EachPictureIsRenderedOncePerRatio) {
    QTemporaryDir empty;
    CardArt art(empty.path());
    const QPixmap first = art.Image(12, 2.0);
    EXPECT_EQ(art.Image(12, 2.0).cacheKey(), first.cacheKey());
    EXPECT_NE(art.Image(12, 1.0).cacheKey(), first.cacheKey());
}

TEST(CardArtTest, OnlyTheRatiosAskedForLastAreKept) {
    QTemporaryDir empty;
    CardArt art(empty.path());
    const qint64 first = art.Image(12, 1.0).cacheKey();
    const qint64 second = art.Image(12, 1.5).cacheKey();
    art.Image(12, 2.0);
    // Asking again makes 1.0 the newest; 1.5 is then the oldest and goes.
    EXPECT_EQ(art.Image(12, 1.0).cacheKey(), first);
    art.Image(3, 2.25);
    EXPECT_EQ(art.Image(12, 1.0).cacheKey(), first);
    EXPECT_NE(art.Image(12, 1.5).cacheKey(), second);
}

TEST(CardArtTest, ImageSizesDoNotDependOnTheRatio) {
    QTemporaryDir empty;
    CardArt art(empty.path());
    for (int index = 1; index <= 53; ++index) {
        EXPECT_EQ(CardArt::ImageSize(index), LogicalSize(index)) << index;
        EXPECT_EQ(art.Image(index, 2.0).size(), LogicalSize(index) * 2) << index;
    }
}

// The window shows the very icon that is installed for the desktop's menus.
TEST(CardArtTest, TheProgramIconIsTheInstalledIcon) {
    QSvgRenderer installed(QStringLiteral(TRICKHAVEN_ICON_FILE));
    ASSERT_TRUE(installed.isValid());
    for (int side : {32, 64, 256}) {
        SCOPED_TRACE(testing::Message() << side);
        QImage expected(side, side, QImage::Format_ARGB32_Premultiplied);
        expected.fill(Qt::transparent);
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        installed.render(&painter, QRectF(0, 0, side, side));
        painter.end();
        const QImage shown = CardArt::ProgramIcon()
                                 .pixmap(side, side)
                                 .toImage()
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        ASSERT_EQ(shown.size(), expected.size());
        int opaque = 0;
        int differing = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const QColor a = shown.pixelColor(x, y);
                const QColor b = expected.pixelColor(x, y);
                opaque += a.alpha() > 200 ? 1 : 0;
                const int gap =
                    std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                              std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha())});
                differing += gap > 8 ? 1 : 0;
            }
        }
        EXPECT_GT(opaque, side * side / 4);
        EXPECT_EQ(differing, 0);
    }
    const QImage onMessage = CardArt::MessageIcon(1, 1.0).toImage();
    EXPECT_EQ(
        onMessage.convertToFormat(QImage::Format_ARGB32),
        CardArt::ProgramIcon().pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32));
}

TEST(CardArtTest, IconsOfTheProgramAndTheMessages) {
    EXPECT_GE(CardArt::ProgramIcon().availableSizes().size(), 3);
    std::vector<QImage> icons;
    for (int index = 1; index <= 3; ++index) {
        const QPixmap icon = CardArt::MessageIcon(index, 2.0);
        EXPECT_EQ(icon.deviceIndependentSize().toSize(), QSize(32, 32));
        for (const QImage& other : icons) {
            EXPECT_NE(icon.toImage(), other);
        }
        icons.push_back(icon.toImage());
    }
    const QImage trump = CardArt::TrumpPanelPicture(1.0).toImage();
    EXPECT_EQ(trump.size(), QSize(32, 32));
    EXPECT_EQ(trump.pixelColor(16, 16), QColor(Qt::white));
    EXPECT_GT(StronglyRedPixels(CardArt::TrumpPanelPicture(1.0)), 200);
}

}  // namespace
}  // namespace trickhaven
