#include "forms/about_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <tuple>

namespace trickhaven {
namespace {

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
