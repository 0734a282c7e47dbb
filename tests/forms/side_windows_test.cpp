// The windows beside the table: the game's message box, the help pages and
// the About box. Every caption of every form and message shows whole: no
// text is wider or taller than what its control shows, and no control leaves
// its window.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <tuple>

#include "forms/about_box.h"
#include "forms/help_pages.h"
#include "forms/mform_deluxe.h"
#include "forms/twips.h"
#include "forms_test_support.h"
#include "tools/gallery/game_messages.h"

namespace trickhaven {
namespace {

const QString kLongMessage = QStringLiteral(
    "Player, you have melded a Run in Trumps, Four Aces and a Double Pinochle, but the robot "
    "has already reached the target score, and the knock ends the game before your melds can "
    "count. Better luck in the next game, when the cards may run your way from the start.");
const QColor kFace(240, 240, 240);
const QColor kShadow(128, 128, 128);

// Layout figures can fall on half twips; a control stands on the nearest whole one.
int PixelsOf(double twips) {
    return TwipsToPixels(static_cast<int>(std::lround(twips)));
}

class MessageBoxTest : public ::testing::Test {
protected:
    QWidget* Button(int index) { return form.findChild<QWidget*>(QString("Pic1_%1").arg(index)); }
    QLabel* Caption(int index) { return form.findChild<QLabel*>(QString("Label1_%1").arg(index)); }

    MFormDeluxe form;
};

// The form follows its text: the buttons stand 90 twips above the bottom and
// the icon is centred. Fewer buttons after more: the unused ones hide and the
// rest recentre. A short message after a long one keeps the long one's centre
// and paints over its frame.
TEST_F(MessageBoxTest, TheFormFollowsItsTextAndItsButtonsStandWhereTheTableOfLayoutsPutsThem) {
    struct Case {
        QString text, button1, button2;
        std::array<double, 3> lefts;  // -1: hidden
    };
    const QString brief = "Not your turn.";
    const Case cases[] = {{brief, "No", "Maybe", {292.5, 1612.5, 2932.5}},
                          {brief, "No", {}, {952, 2273, -1}},
                          {brief, {}, {}, {1612.5, -1, -1}},
                          {kLongMessage, {}, {}, {1612.5, -1, -1}}};
    std::map<QString, int> heights;  // of the form, by its text
    const QLabel* message = form.findChild<QLabel*>("Label2");
    for (const Case& c : cases) {
        SCOPED_TRACE((c.text.left(12) + " | " + c.button1 + " | " + c.button2).toStdString());
        const QString title = c.text == brief ? "Wait" : " Game over";
        form.Prepare(c.text, "OK", c.button1, c.button2, 3, title);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(Button(i)->isHidden(), c.lefts[i] < 0);
            EXPECT_NEAR(form.ButtonLeftTwips(i), c.lefts[i], c.lefts[i] < 0 ? 0 : 0.5);
            EXPECT_TRUE(c.lefts[i] < 0 || Button(i)->x() == PixelsOf(c.lefts[i])) << i;
            EXPECT_EQ(form.ButtonTopTwips(i), form.FormHeightTwips() - 300 - 90);
        }
        const int h = heights[c.text] = form.FormHeightTwips();
        EXPECT_EQ(form.ButtonCaption(1), c.button1);
        EXPECT_EQ(form.TitleBandText(), "   " + title);
        EXPECT_EQ(h, PixelsToTwips(message->height()) + 1140);
        EXPECT_EQ(message->heightForWidth(message->width()), message->height());
        EXPECT_EQ(form.height(), TwipsToPixels(h));
        EXPECT_EQ(Button(0)->geometry().bottom() + 1, form.height() - TwipsToPixels(90));
        EXPECT_EQ(form.IconTopTwips(), h / 2 - 255);
        EXPECT_LE(std::abs(form.findChild<QLabel*>("Picture1")->geometry().center().y() -
                           form.height() / 2),
                  1);
    }
    EXPECT_GE(heights[kLongMessage] - heights[brief], 3 * (heights[brief] - 1140));
    const QImage shot = form.grab().toImage();
    EXPECT_EQ(shot.pixelColor(245, TwipsToPixels(heights[brief]) - 2), QColor(0, 0, 255));
    EXPECT_EQ(shot.pixelColor(245, form.height() - 2), kShadow);
    form.Prepare(brief, "OK", {}, {}, 3, "Wait");
    EXPECT_EQ(form.FormHeightTwips(), heights[brief]);
    const QRect screen = form.screen()->geometry();
    EXPECT_EQ(form.y() - screen.y(),
              PixelsOf(PixelsToTwips(screen.height()) / 2.0 - heights[kLongMessage] / 2.0));
    EXPECT_EQ(form.x() - screen.x(), PixelsOf(PixelsToTwips(screen.width()) / 2.0 - 4500 / 2.0));
}

// A caption takes either mouse button.
TEST_F(MessageBoxTest, PressDragOffAndReleaseMakesNoClickAndStaysPressed) {
    form.Prepare("Not your turn.", "OK", "Exit", {}, 3, "Wait");
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    QLabel* caption = Caption(1);
    const QRect raised = caption->geometry();
    EXPECT_EQ(Button(1)->grab().toImage().pixelColor(0, 0), kFace);
    QTest::mousePress(caption, Qt::LeftButton);
    EXPECT_EQ(Button(1)->grab().toImage().pixelColor(0, 0), kShadow);
    QTest::mouseMove(caption, QPoint(-40, -40));
    QTest::mouseRelease(caption, Qt::LeftButton, {}, QPoint(-40, -40));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.Choice(), 0);
    EXPECT_EQ(caption->geometry(), raised.adjusted(1, 1, 0, 0));
    QTest::mouseClick(caption, Qt::RightButton);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Choice(), 1);
    // The next message raises the button again.
    form.Prepare("Not your turn.", "OK", "Exit", {}, 3, "Wait");
    EXPECT_EQ(caption->geometry(), raised);
    EXPECT_EQ(Button(1)->grab().toImage().pixelColor(0, 0), kFace);
}

// A dialog named by the title with its text and its buttons named by their
// captions; the first has the focus, the box keeps the keyboard.
TEST_F(MessageBoxTest, TheBoxReadsAsADialogWithItsTextAndItsButtonsAndTheFirstHasTheFocus) {
    form.Prepare("Do you wish to leave?", "No Continue", "Yes &New Game", {}, 2,
                 " Leave this game?");
    form.show();
    QApplication::setActiveWindow(&form);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QAccessibleInterface* box = QAccessible::queryAccessibleInterface(&form);
    EXPECT_EQ(std::tuple(box->role(), box->text(QAccessible::Name)),
              std::tuple(QAccessible::Dialog, QString("Leave this game?")));
    using Row = std::tuple<QAccessible::Role, QString, int, bool>;  // children, focused
    std::vector<Row> read;
    for (int i = 0; i < box->childCount(); ++i) {
        QAccessibleInterface* child = box->child(i);
        EXPECT_EQ(box->indexOfChild(child), i);
        read.emplace_back(child->role(), child->text(QAccessible::Name), child->childCount(),
                          child->state().focused);
    }
    EXPECT_EQ(read, (std::vector<Row>{{QAccessible::StaticText, "Do you wish to leave?", 0, false},
                                      {QAccessible::PushButton, "No Continue", 0, true},
                                      {QAccessible::PushButton, "Yes New Game", 0, false}}));
    // Another window of the game given the keyboard hands it back.
    QWidget table;
    table.show();
    QApplication::setActiveWindow(&table);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.isActiveWindow(); }));
    EXPECT_FALSE(form.KeyFocusShown());
    QTest::keyClick(&form, Qt::Key_Tab);
    EXPECT_TRUE(Button(1)->hasFocus() && box->child(2)->state().focused && form.KeyFocusShown());
    box->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Choice(), 1);
    // Each key answers as the click on its button.
    const std::pair<std::vector<Qt::Key>, int> answers[] = {
        {{Qt::Key_Escape}, 0},
        {{Qt::Key_Tab, Qt::Key_Space}, 1},
        {{Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}, 0}};
    for (const auto& [keys, choice] : answers) {
        form.Prepare("Do you wish to leave?", "No Continue", "Yes New Game", {}, 2, "Leave?");
        form.show();
        for (const Qt::Key key : keys) QTest::keyClick(&form, key);
        EXPECT_EQ(std::pair(form.isVisible(), form.Choice()), std::pair(false, choice));
    }
}

// Pages one and two print their lines at every repaint; page three printed
// itself once when it loaded and only shows that print again.
TEST(HelpPageTest, RepaintingPrintsPagesOneAndTwoOnceMoreButPageThreeOnlyWhenItLoads) {
    CardArt art;
    FrmHelp first{art};
    FrmHelp2 second{art};
    FrmHelp3 third{art};
    for (HelpPage* page : std::array<HelpPage*, 3>{&first, &second, &third}) {
        const int lines = static_cast<int>(page->Lines().size());
        const int perPaint = page == &third ? 0 : lines;
        for (int paints = 0; paints <= 2; ++paints) {
            EXPECT_EQ(page->LinesPrinted(), lines - perPaint + paints * perPaint)
                << page->windowTitle().toStdString() << " painted " << paints;
            page->grab();
        }
        EXPECT_EQ(page->PrintPositionY(), lines * page->LineHeight());
    }
}

// Each button, clicked or pressed by Enter or Space, hides its page and shows
// the next, Escape leaves as the exit button does, a page loads once; a page
// reads as a dialog with its words and buttons; a key shows the focus.
TEST(HelpNavigationTest, ButtonsClickedOrPressedByKeysAndEscapeHideTheirPageAndShowTheNext) {
    struct Step {
        int page;            // 0: the Rules entry of the menu
        const char* button;  // none: Escape
        Qt::Key key;         // Key_unknown: a click
        std::array<bool, 3> up;
    };
    constexpr Qt::Key click = Qt::Key_unknown;
    const Step steps[] = {
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, "CmdPage3", Qt::Key_Space, {false, false, true}},
        {3, "CmdBack2", click, {false, true, false}},
        {2, "CmdBackPage1", Qt::Key_Return, {true, false, false}},
        {1, "CmdExitHelp", click, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, nullptr, Qt::Key_Escape, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", Qt::Key_Enter, {false, true, false}},
        {2, "CmdExtPage2", click, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, nullptr, Qt::Key_Escape, {false, false, false}},
        {0, "", click, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, "CmdPage3", click, {false, false, true}},
        {0, "", click, {true, false, true}},
        {3, nullptr, Qt::Key_Escape, {true, false, false}},
        {1, "CmdGioHelp2", click, {false, true, false}},
        {2, "CmdPage3", click, {false, false, true}},
        {3, "CmdExit3", click, {false, false, false}},
    };
    HelpPages help;
    std::array<HelpPage*, 3> loaded{};
    for (const Step& step : steps) {
        SCOPED_TRACE(step.page == 0 ? "Pinochle Rules" : step.button ? step.button : "Escape");
        if (step.page == 0) {
            help.ShowFirstPage();
        } else {
            HelpPage* page = help.Page(step.page);
            ASSERT_TRUE(page && page->isVisible());
            QAccessibleInterface* read = QAccessible::queryAccessibleInterface(page);
            EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name)),
                      std::tuple(QAccessible::Dialog, page->windowTitle()));
            EXPECT_TRUE(read->text(QAccessible::Description)
                            .startsWith(page->Lines().front().simplified()));
            const QList<QAbstractButton*> buttons = page->findChildren<QAbstractButton*>();
            ASSERT_EQ(read->childCount(), buttons.size());
            for (int i = 0; i < read->childCount(); ++i) {
                EXPECT_EQ(
                    std::tuple(read->child(i)->role(), read->child(i)->text(QAccessible::Name)),
                    std::tuple(QAccessible::PushButton, buttons.at(i)->text().remove('&')));
            }
            auto* button = step.button ? page->findChild<QAbstractButton*>(step.button) : nullptr;
            if (step.key == click) {
                button->click();
            } else if (button == nullptr) {
                QTest::keyClick(page, step.key);
            } else {
                QApplication::setActiveWindow(page);
                button->setFocus();
                QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(1, 1));  // the mouse hides it
                const QImage unfocused = button->grab().toImage();
                QTest::keyClick(button, Qt::Key_Shift);
                EXPECT_NE(button->grab().toImage(), unfocused) << "the focus does not show";
                QTest::keyClick(button, step.key);
            }
        }
        for (std::size_t page = 0; page < 3; ++page) {
            HelpPage* shown = help.Page(static_cast<int>(page) + 1);
            EXPECT_EQ(shown && shown->isVisible(), step.up[page]) << "page " << page + 1;
            loaded[page] = loaded[page] ? loaded[page] : shown;
            EXPECT_EQ(shown, loaded[page]) << "page " << page + 1 << " loaded again";
        }
    }
}

// Lets a box that closed itself be deleted.
void DeleteClosed() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// The table plays on beside the box; asked again while it is up, the same box
// comes; OK, Enter, Escape and its close box each unload it.
TEST(AboutBoxTest, IsModelessAndOkEnterEscapeAndTheCloseBoxUnloadIt) {
    QPointer<FrmAbout> box;
    const std::function<void(FrmAbout&)> closes[] = {
        [](FrmAbout& b) { b.findChild<QAbstractButton*>("cmdOK")->click(); },
        [](FrmAbout& b) { QTest::keyClick(&b, Qt::Key_Return); },
        [](FrmAbout& b) { QTest::keyClick(&b, Qt::Key_Escape); }, [](FrmAbout& b) { b.close(); }};
    // Push buttons named by their captions; a key shows the focus.
    ShowAboutBox(box, nullptr);
    QApplication::setActiveWindow(box);
    for (const auto& [name, said] : {std::pair{"cmdOK", "OK"}, {"cmdSysInfo", "System Info..."}}) {
        QAccessibleInterface* read =
            QAccessible::queryAccessibleInterface(box->findChild<QAbstractButton*>(name));
        EXPECT_EQ(std::tuple(read->role(), read->text(QAccessible::Name)),
                  std::tuple(QAccessible::PushButton, QString(said)));
    }
    QWidget* focused = box->focusWidget();
    const QImage unfocused = focused->grab().toImage();
    QTest::keyClick(focused, Qt::Key_Shift);
    EXPECT_NE(focused->grab().toImage(), unfocused) << "the focus does not show";
    for (const auto& close : closes) {
        ShowAboutBox(box, nullptr);
        const FrmAbout* shown = box.data();
        ShowAboutBox(box, nullptr);
        ASSERT_TRUE(box);
        EXPECT_TRUE(box.data() == shown && box->isVisible() && !box->isModal());
        close(*box);
        DeleteClosed();
        EXPECT_TRUE(box.isNull());
    }
}

TEST(AboutBoxTest, SystemInfoWithoutAWorkingToolSaysSoAndTheBoxStays) {
    QApplication::setApplicationName(QStringLiteral("Trickhaven"));
    QPointer<FrmAbout> box;
    ShowAboutBox(box, nullptr);
    // No tool at all, then a tool that cannot start.
    for (const QByteArray& content : {QByteArray(), QByteArray("not a program\n")}) {
        QTemporaryDir tools;
        if (!content.isEmpty()) {
            QFile tool(tools.filePath(QStringLiteral("hardinfo")));
            ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
            tool.write(content);
            tool.close();
            tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        }
        box->SetSystemInfoSearch({QStringLiteral("hardinfo")}, {tools.path()});
        QString seen;
        QTimer::singleShot(0, [&seen] {
            if (auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                seen = message->windowTitle() + " | " + message->text();
                message->button(QMessageBox::Ok)->click();
            }
        });
        box->findChild<QAbstractButton*>("cmdSysInfo")->click();
        EXPECT_EQ(seen, "Trickhaven | System Information Is Unavailable At This Time");
        DeleteClosed();
        ASSERT_TRUE(box);
        EXPECT_TRUE(box->isVisible());
    }
    delete box.data();
}

// A label's or button's caption, a panel's title or a status panel's text.
QString Shown(const QWidget& control) {
    QString text =
        control.property(control.property("title").isValid() ? "title" : "text").toString();
    return qobject_cast<const QAbstractButton*>(&control) ? text.remove(QLatin1Char('&')) : text;
}

// A font below the design's is the largest in which the caption fits.
void ExpectSteppedNoFurther(const QWidget& control, int designPixels) {
    QFont larger = control.font();
    larger.setPixelSize(larger.pixelSize() + 1);
    EXPECT_TRUE(larger.pixelSize() > designPixels ||
                QFontMetrics(larger).horizontalAdvance(Shown(control)) > control.width() - 2)
        << control.objectName().toStdString();
}

// The name labels follow the names the player types.
const QStringList Names{"LblBotsName", "LblPlayer0", "LblBName", "LblPname1"};

void ExpectCaptionsWhole(QWidget& form) {
    for (QWidget* control : form.findChildren<QWidget*>()) {
        const QString text = Shown(*control);
        if (text.isEmpty() || control->isWindow() || Names.contains(control->objectName())) {
            continue;
        }
        const QFontMetrics metrics(control->font());
        const QRect box = control->contentsRect();
        const QRect needed = control->property("wordWrap").toBool()
                                 ? metrics.boundingRect(box, Qt::TextWordWrap, text)
                                 : QRect(0, 0, metrics.horizontalAdvance(text), metrics.height());
        SCOPED_TRACE(control->objectName().toStdString() + ": \"" + text.toStdString() + "\"");
        EXPECT_LE(needed.width(), box.width());
        EXPECT_LE(needed.height(), box.height());
        EXPECT_TRUE(form.rect().contains(QRect(control->mapTo(&form, QPoint()), control->size())));
    }
}

TEST(CaptionTest, EveryCaptionOfTheTableAndItsPanelsShowsWhole) {
    PinochleTable table;
    table.resize(420, 380);  // below the window's smallest size
    table.show();
    ExpectCaptionsWhole(*table.Surface());
    ExpectCaptionsWhole(table);
    // The widest texts of fixed words that play puts in them.
    table.SetCaption(TableLabel::LblStock, "Stock 24");
    table.SetCaption(TableLabel::CmdSort, "Sort Suits");
    table.SetPanelText(1, "Diamonds are Trumps");
    table.SetPanelText(3, "Tricks 24");
    table.SetPanelText(4, "Round 2");
    ExpectCaptionsWhole(*table.Surface());
    ExpectCaptionsWhole(table);
    // Grown around its centre, the robot's keeps its design font.
    EXPECT_EQ(FindControl(table, "Label3")->font().pixelSize(), 15);
    ExpectSteppedNoFurther(*FindControl(table, "LblTotal"), 15);
}

TEST(CaptionTest, EveryMessageOfTheGameTheHelpPagesAndTheAboutBoxShowWhole) {
    HelpPages help;
    for (int page = 1; page <= 3; ++page) {
        help.Show(page);
        ExpectCaptionsWhole(*help.Page(page));
    }
    FrmAbout about;
    ExpectCaptionsWhole(about);
    const auto q = [](const std::string& text) { return QString::fromStdString(text); };
    MFormDeluxe form;
    for (const GameMessage& m : GameMessages()) {
        SCOPED_TRACE(m.title);
        if (m.kind == MessageKind::Deluxe) {
            form.Prepare(q(m.text), q(m.button0), q(m.button1), q(m.button2), m.icon, q(m.title));
            ExpectCaptionsWhole(form);
            for (int i = 0; i < 3; ++i) {
                ExpectSteppedNoFurther(*form.findChild<QLabel*>(QString("Label1_%1").arg(i)), 16);
            }
            continue;
        }
        QMessageBox box(QMessageBox::Information, q(m.title), q(m.text), QMessageBox::Ok);
        QInputDialog input;
        input.setLabelText(q(m.text));
        QDialog& dialog = m.kind == MessageKind::Input ? static_cast<QDialog&>(input) : box;
        dialog.show();
        ExpectCaptionsWhole(dialog);
    }
}

}  // namespace
}  // namespace trickhaven
