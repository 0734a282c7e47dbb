// The windows beside the table: the help pages and the About box.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <array>
#include <functional>
#include <tuple>

#include "forms/about_box.h"
#include "forms/help_pages.h"

namespace trickhaven {
namespace {

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

}  // namespace
}  // namespace trickhaven
