#include "forms/card_art.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QTemporaryDir>

#include "forms/table_view.h"

namespace trickhaven {
namespace {

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
