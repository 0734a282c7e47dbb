#include "forms/card_art.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace trickhaven {
namespace {

QSize LogicalSize(int index) {
    return index <= 48 ? QSize(71, 96) : index == 49 ? QSize(72, 98) : QSize(32, 32);
}

int StronglyRedPixels(const QPixmap& pixmap) {
    const QImage image = pixmap.toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            count += c.alpha() > 200 && c.red() > 150 && c.green() < 90 && c.blue() < 90;
        }
    }
    return count;
}

// The checks that any deck must pass, installed or drawn: the size of every
// picture at every ratio, two alike cards of each face, all faces different,
// and suits in the order Diamonds, Clubs, Hearts, Spades.
void ExpectAWholeDeck(CardArt& art) {
    for (qreal ratio : {1.0, 1.5, 2.0}) {
        for (int index = 1; index <= 53; ++index) {
            SCOPED_TRACE(testing::Message() << "image " << index << " at " << ratio);
            const QPixmap picture = art.Image(index, ratio);
            EXPECT_EQ(picture.devicePixelRatio(), ratio);
            EXPECT_EQ(picture.deviceIndependentSize().toSize(), LogicalSize(index));
            EXPECT_EQ(CardArt::ImageSize(index), LogicalSize(index));
        }
    }
    std::vector<QImage> faces;
    for (int card = 1; card <= 49; card += 2) {
        SCOPED_TRACE(testing::Message() << "card " << card);
        const QImage face = art.Image(card, 1.0).toImage();
        if (card < 49) {
            EXPECT_EQ(face, art.Image(card + 1, 1.0).toImage());
            // The Ace, Ten and Nine show only their suit's colour.
            const int suit = (card - 1) / 12;
            const int rank = (card - 1) % 12 / 2;
            if (rank == 0 || rank == 1 || rank == 5) {
                EXPECT_EQ(StronglyRedPixels(art.Image(card, 1.0)) > 20, suit == 0 || suit == 2);
            }
        }
        for (const QImage& other : faces) {
            EXPECT_NE(face, other);
        }
        faces.push_back(face);
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

// The first message icon is the program's own icon, the trump panel a red picture.
TEST(CardArtTest, MessageIconsAndTheTrumpPicture) {
    EXPECT_FALSE(CardArt::ProgramIcon().isNull());
    EXPECT_EQ(
        CardArt::MessageIcon(1, 1.0).toImage().convertToFormat(QImage::Format_ARGB32),
        CardArt::ProgramIcon().pixmap(32, 32).toImage().convertToFormat(QImage::Format_ARGB32));
    EXPECT_NE(CardArt::MessageIcon(2, 1.0).toImage(), CardArt::MessageIcon(3, 1.0).toImage());
    EXPECT_GT(StronglyRedPixels(CardArt::TrumpPanelPicture(1.0)), 200);
}

}  // namespace
}  // namespace trickhaven
