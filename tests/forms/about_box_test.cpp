#include "forms/about_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "forms/twips.h"

namespace trickhaven {
namespace {

const QColor kLabelBack(192, 255, 255);
const QColor kButtonBack(192, 255, 192);

// Lets a box that closed itself be deleted.
void DeleteClosed() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void WriteTool(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

class AboutBoxTest : public ::testing::Test {
protected:
    void SetUp() override {
        ShowAboutBox(box, nullptr);
        ASSERT_TRUE(box);
    }
    void TearDown() override {
        delete box.data();
        DeleteClosed();
    }

    // Clicks System Info; a message box that comes is read and answered OK.
    void ClickSystemInfo() {
        QTimer::singleShot(0, [this] {
            if (auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                seen = message->windowTitle() + " | " + message->text();
                message->button(QMessageBox::Ok)->click();
            }
        });
        box->findChild<QAbstractButton*>("cmdSysInfo")->click();
    }

    QPointer<FrmAbout> box;
    QString seen;
};

TEST_F(AboutBoxTest, IsAFixedCentredModelessDialogWithCloseBoxOnly) {
    EXPECT_EQ(box->windowTitle(), QStringLiteral("About Trickhaven"));
    EXPECT_EQ(box->size(), QSize(TwipsToPixels(5730), TwipsToPixels(3555)));
    EXPECT_EQ(box->minimumSize(), box->maximumSize());
    const Qt::WindowFlags flags = box->windowFlags();
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_FALSE(box->isModal());
    EXPECT_TRUE(box->isVisible());
    const QPoint centre = box->screen()->availableGeometry().center();
    EXPECT_LE((box->geometry().center() - centre).manhattanLength(), 2);
}

TEST_F(AboutBoxTest, ControlsStandWhereDesignedWithTheirTexts) {
    struct Case {
        const char* name;
        int left, top, width, height;
        double points;
        QColor back;
        const char* text;
    };
    const Case cases[] = {
        {"lblTitle", 1050, 240, 3885, 480, 12, kLabelBack, "Trickhaven"},
        // A size smaller, so that its line fits the label's height whole.
        {"lblVersion", 1050, 780, 3885, 225, 9.75, kLabelBack, "Version 2.0.7"},
        {"lblDescription", 1050, 1125, 3885, 1170, 12, kLabelBack,
         "A fascinating game of cards which can keep you happy for many hours."},
        {"lblDisclaimer", 255, 2625, 3870, 825, 12, kLabelBack, nullptr},
        {"cmdOK", 4245, 2625, 1260, 345, 0, kButtonBack, "OK"},
        {"cmdSysInfo", 4260, 3075, 1245, 345, 0, kButtonBack, "&System Info..."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QWidget* control = box->findChild<QWidget*>(c.name);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(control->geometry(), TwipsToPixels(c.left, c.top, c.width, c.height));
        EXPECT_FALSE(control->accessibleName().isEmpty());
        if (auto* label = qobject_cast<QLabel*>(control)) {
            EXPECT_TRUE(c.text ? label->text() == c.text : label->text().contains("Trickhaven"));
            EXPECT_EQ(label->font().pixelSize(), PointsToPixels(c.points));
            // The whole text shows; only a descender row may fall outside.
            EXPECT_LE(label->heightForWidth(label->width()), label->height() + 1);
        } else {
            EXPECT_EQ(qobject_cast<QAbstractButton*>(control)->text(), QString::fromLatin1(c.text));
        }
        EXPECT_EQ(control->grab().toImage().pixelColor(2, 2), c.back);
    }
}

TEST_F(AboutBoxTest, OkEnterEscapeAndCloseBoxUnloadTheBoxAndTheNextRequestMakesANewOne) {
    FrmAbout* first = box.data();
    ShowAboutBox(box, nullptr);
    EXPECT_EQ(box.data(), first);
    const std::pair<const char*, std::function<void(FrmAbout&)>> cases[] = {
        {"OK", [](FrmAbout& b) { b.findChild<QAbstractButton*>("cmdOK")->click(); }},
        {"Enter", [](FrmAbout& b) { QTest::keyClick(&b, Qt::Key_Return); }},
        {"Escape", [](FrmAbout& b) { QTest::keyClick(&b, Qt::Key_Escape); }},
        {"close box", [](FrmAbout& b) { b.close(); }},
    };
    for (const auto& [how, act] : cases) {
        SCOPED_TRACE(how);
        ShowAboutBox(box, nullptr);
        ASSERT_TRUE(box);
        EXPECT_TRUE(box->isVisible());
        act(*box);
        DeleteClosed();
        EXPECT_TRUE(box.isNull());
    }
}

TEST_F(AboutBoxTest, SystemInfoWithoutAToolSaysSoAndTheBoxStays) {
    QApplication::setApplicationName(QStringLiteral("Trickhaven"));
    // No tool at all, then a tool that cannot start.
    for (const QByteArray& content : {QByteArray(), QByteArray("not a program\n")}) {
        QTemporaryDir tools;
        if (!content.isEmpty()) {
            WriteTool(tools.filePath(QStringLiteral("hardinfo")), content);
        }
        box->SetSystemInfoSearch({QStringLiteral("hardinfo")}, {tools.path()});
        seen.clear();
        ClickSystemInfo();
        EXPECT_EQ(seen, "Trickhaven | System Information Is Unavailable At This Time");
        DeleteClosed();
        ASSERT_TRUE(box);
        EXPECT_TRUE(box->isVisible());
    }
}

}  // namespace
}  // namespace trickhaven
