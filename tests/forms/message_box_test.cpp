#include <gtest/gtest.h>

#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <array>
#include <cmath>

#include "forms/mform_deluxe.h"
#include "forms/twips.h"

namespace trickhaven {
namespace {

const QString kLongMessage = QStringLiteral(
    "Player, you have melded a Run in Trumps, Four Aces and a Double Pinochle, but the robot "
    "has already reached the target score, and the knock ends the game before your melds can "
    "count. Better luck in the next game, when the cards may run your way from the start.");

// Layout figures can fall on half twips; a control stands on the nearest whole one.
int PixelsOf(double twips) {
    return TwipsToPixels(static_cast<int>(std::lround(twips)));
}

class MessageBoxTest : public ::testing::Test {
protected:
    QLabel* Label(const char* name) { return form.findChild<QLabel*>(QString::fromLatin1(name)); }
    QWidget* Button(int index) {
        return form.findChild<QWidget*>(QStringLiteral("Pic1_%1").arg(index));
    }
    QLabel* Caption(int index) {
        return form.findChild<QLabel*>(QStringLiteral("Label1_%1").arg(index));
    }

    void PrepareShort(const QString& button1 = {}, const QString& button2 = {}) {
        form.Prepare(QStringLiteral("Not your turn."), QStringLiteral("OK"), button1, button2, 3,
                     QStringLiteral("Wait"));
    }

    // The layout that holds for every message: the form follows the text,
    // the buttons stand 90 twips above the bottom, the icon is centred.
    void ExpectLayoutFollowsText() {
        const int h = form.FormHeightTwips();
        EXPECT_EQ(h, PixelsToTwips(Label("Label2")->height()) + 1140);
        EXPECT_EQ(form.height(), TwipsToPixels(h));
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(form.ButtonTopTwips(i), h - 300 - 90);
        }
        EXPECT_EQ(Button(0)->geometry().bottom() + 1, form.height() - TwipsToPixels(90));
        EXPECT_EQ(form.IconTopTwips(), h / 2 - 255);
        EXPECT_LE(std::abs(Label("Picture1")->geometry().center().y() - form.height() / 2), 1);
    }

    MFormDeluxe form;
};

TEST_F(MessageBoxTest, ButtonsStandWhereTheTableOfLayoutsPutsThem) {
    struct Case {
        int buttons;
        QString button1, button2;
        std::array<double, 3> lefts;  // -1: hidden
    };
    const std::array<Case, 3> cases{{
        {1, {}, {}, {1612.5, -1, -1}},
        {2, QStringLiteral("No"), {}, {952, 2273, -1}},
        {3, QStringLiteral("No"), QStringLiteral("Maybe"), {292.5, 1612.5, 2932.5}},
    }};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.buttons << " buttons");
        PrepareShort(c.button1, c.button2);
        const std::array<double, 3>& expected = c.lefts;
        for (int i = 0; i < 3; ++i) {
            if (expected[i] < 0) {
                EXPECT_EQ(form.ButtonLeftTwips(i), -1);
                EXPECT_TRUE(Button(i)->isHidden());
            } else {
                EXPECT_NEAR(form.ButtonLeftTwips(i), expected[i], 0.5);
                EXPECT_FALSE(Button(i)->isHidden());
                EXPECT_EQ(Button(i)->x(), PixelsOf(expected[i]));
            }
        }
        EXPECT_EQ(form.ButtonCaption(0), QStringLiteral("OK"));
        EXPECT_EQ(form.ButtonCaption(1), c.button1);
        ExpectLayoutFollowsText();
    }
}

TEST_F(MessageBoxTest, LongMessageMakesTheFormTallerByItsTextHeight) {
    PrepareShort();
    const int shortText = Label("Label2")->height();
    const int shortForm = form.FormHeightTwips();
    form.Prepare(kLongMessage, QStringLiteral("OK"), {}, {}, 1, QStringLiteral("Game over"));
    const QLabel* message = Label("Label2");
    EXPECT_GE(message->height(), 4 * shortText);
    // The label lays the text out at the height it was given: nothing is cut off.
    EXPECT_EQ(message->heightForWidth(message->width()), message->height());
    EXPECT_EQ(form.FormHeightTwips() - shortForm, PixelsToTwips(message->height() - shortText));
    ExpectLayoutFollowsText();
}

TEST_F(MessageBoxTest, ShortMessageAfterLongOneShrinksAndCentresOnTheLongHeight) {
    form.Prepare(kLongMessage, QStringLiteral("OK"), {}, {}, 1, QStringLiteral("Game over"));
    const int longHeight = form.FormHeightTwips();
    PrepareShort();
    EXPECT_LT(form.FormHeightTwips(), longHeight);
    ExpectLayoutFollowsText();
    const QRect screen = form.screen()->geometry();
    EXPECT_EQ(form.y() - screen.y(),
              PixelsOf(PixelsToTwips(screen.height()) / 2.0 - longHeight / 2.0));
    EXPECT_EQ(form.x() - screen.x(), PixelsOf(PixelsToTwips(screen.width()) / 2.0 - 4500 / 2.0));
}

TEST_F(MessageBoxTest, FrameOfTheMessageBeforeIsCleared) {
    PrepareShort();
    const int oldBottomLine = form.height() - 2;
    form.Prepare(kLongMessage, QStringLiteral("OK"), {}, {}, 1, QStringLiteral("Game over"));
    const QImage shot = form.grab().toImage();
    const int bottomLine = form.height() - 2;
    // Between the message and the icon, where only the form shows.
    EXPECT_EQ(shot.pixelColor(245, oldBottomLine), QColor(0, 0, 255));
    EXPECT_EQ(shot.pixelColor(245, bottomLine), QColor(128, 128, 128));
    EXPECT_EQ(shot.pixelColor(1, 1), QColor(240, 240, 240));
    EXPECT_EQ(shot.pixelColor(form.width() - 2, form.height() / 2), QColor(128, 128, 128));
}

TEST_F(MessageBoxTest, TitleBandStartsWithThreeBlanks) {
    PrepareShort();
    EXPECT_EQ(form.TitleBandText(), QStringLiteral("   Wait"));
    form.Prepare(QStringLiteral("Nothing to meld."), QStringLiteral("OK"), {}, {}, 3,
                 QStringLiteral(" No Pinochle"));
    EXPECT_EQ(form.TitleBandText(), QStringLiteral("    No Pinochle"));
}

TEST_F(MessageBoxTest, OneButtonMessageAfterTwoHidesTheSecondAndRecentres) {
    PrepareShort(QStringLiteral("Exit"));
    PrepareShort();
    EXPECT_EQ(form.ButtonLeftTwips(1), -1);
    EXPECT_TRUE(Button(1)->isHidden());
    EXPECT_NEAR(form.ButtonLeftTwips(0), 1612.5, 0.5);
}

TEST_F(MessageBoxTest, ClickOnACaptionAnswersTheModalMessageAfterTheRing) {
    int rings = 0;
    form.onRing = [&] {
        ++rings;
        EXPECT_FALSE(form.isVisible());
    };
    QTimer::singleShot(0, &form, [&] { QTest::mouseClick(Caption(1), Qt::LeftButton); });
    QTimer::singleShot(3000, &form, [&] { form.hide(); });  // never hang on a lost click
    EXPECT_EQ(form.Run(QStringLiteral("Erase all?"), QStringLiteral("Yes "), QStringLiteral("No"),
                       {}, 2, QStringLiteral("Really Erase?")),
              1);
    EXPECT_EQ(rings, 1);
    EXPECT_FALSE(form.isVisible());

    // Either mouse button answers; the choice stays until the next click.
    QTimer::singleShot(0, &form, [&] { QTest::mouseClick(Caption(0), Qt::RightButton); });
    QTimer::singleShot(3000, &form, [&] { form.hide(); });
    EXPECT_EQ(form.Run(QStringLiteral("Again?"), QStringLiteral("Play"), QStringLiteral("Exit"), {},
                       1, QStringLiteral("Play again?")),
              0);
    EXPECT_EQ(form.Choice(), 0);
}

TEST_F(MessageBoxTest, PressDragOffAndReleaseMakesNoClickAndStaysPressed) {
    PrepareShort(QStringLiteral("Exit"));
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QLabel* caption = Caption(1);
    const QRect raised = caption->geometry();
    EXPECT_EQ(Button(1)->grab().toImage().pixelColor(0, 0), QColor(240, 240, 240));

    QTest::mousePress(caption, Qt::LeftButton);
    EXPECT_EQ(caption->geometry(), raised.adjusted(1, 1, 0, 0));
    EXPECT_EQ(Button(1)->grab().toImage().pixelColor(0, 0), QColor(128, 128, 128));
    QTest::mouseMove(caption, QPoint(-40, -40));
    QTest::mouseRelease(caption, Qt::LeftButton, {}, QPoint(-40, -40));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.Choice(), 0);
    EXPECT_EQ(caption->geometry(), raised.adjusted(1, 1, 0, 0));

    // Keys answer nothing, Escape included.
    QTest::keyClick(&form, Qt::Key_Escape);
    QTest::keyClick(&form, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());

    QTest::mouseClick(caption, Qt::LeftButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Choice(), 1);

    // The next message raises the button again.
    PrepareShort(QStringLiteral("Exit"));
    EXPECT_EQ(caption->geometry(), raised);
    EXPECT_EQ(Button(1)->grab().toImage().pixelColor(0, 0), QColor(240, 240, 240));
}

}  // namespace
}  // namespace trickhaven
