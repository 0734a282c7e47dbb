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
#include <cstdlib>
#include <functional>

#include "forms/twips.h"

namespace trickhaven {
namespace {

const QColor kNavy(0, 0, 128);
const QColor kLabelBack(192, 255, 255);
const QColor kButtonBack(192, 255, 192);
const QString kUnavailable = QStringLiteral("System Information Is Unavailable At This Time");

// Lets a box that closed itself be deleted.
void DeleteClosed() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// What a modal message box showed, answered with its OK button as soon as
// it is up.
struct MessageSeen {
    bool shown = false;
    QString text;
    QString title;
    int buttons = 0;

    void AnswerNext() {
        QTimer::singleShot(0, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) {
                return;
            }
            shown = true;
            text = box->text();
            title = box->windowTitle();
            buttons = static_cast<int>(box->buttons().size());
            box->button(QMessageBox::Ok)->click();
        });
    }
};

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
    template <typename T = QWidget>
    T* Control(const char* name) {
        auto* control = box->findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(control, nullptr) << name;
        return control;
    }

    QPointer<FrmAbout> box;
    QTemporaryDir folder;
};

TEST_F(AboutBoxTest, IsAFixedModelessDialogWithCloseBoxOnly) {
    EXPECT_EQ(box->windowTitle(), QStringLiteral("About Trickhaven"));
    EXPECT_EQ(box->size(), QSize(TwipsToPixels(5730), TwipsToPixels(3555)));
    EXPECT_EQ(box->minimumSize(), box->maximumSize());
    const Qt::WindowFlags flags = box->windowFlags();
    EXPECT_EQ(flags & Qt::WindowType_Mask, Qt::Dialog);
    EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_FALSE(box->isModal());
    EXPECT_TRUE(box->isVisible());
    EXPECT_TRUE(box->testAttribute(Qt::WA_DeleteOnClose));
    EXPECT_FALSE(box->windowIcon().isNull());
    const QPoint centre = box->screen()->availableGeometry().center();
    const QPoint offset = box->geometry().center() - centre;
    EXPECT_TRUE(std::abs(offset.x()) <= 1 && std::abs(offset.y()) <= 1)
        << offset.x() << "," << offset.y();
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
        {"lblVersion", 1050, 780, 3885, 225, 10.5, kLabelBack, "Version 2.0.7"},
        {"lblDescription", 1050, 1125, 3885, 1170, 12, kLabelBack,
         "A fascinating game of cards which can keep you happy for many hours."},
        {"lblDisclaimer", 255, 2625, 3870, 825, 12, kLabelBack, nullptr},
        {"cmdOK", 4245, 2625, 1260, 345, 0, kButtonBack, "OK"},
        {"cmdSysInfo", 4260, 3075, 1245, 345, 0, kButtonBack, "&System Info..."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QWidget* control = Control(c.name);
        ASSERT_NE(control, nullptr);
        EXPECT_EQ(control->geometry(), TwipsToPixels(c.left, c.top, c.width, c.height));
        EXPECT_FALSE(control->accessibleName().isEmpty());
        if (auto* label = qobject_cast<QLabel*>(control)) {
            if (c.text) {
                EXPECT_EQ(label->text(), QString::fromLatin1(c.text));
            } else {
                EXPECT_TRUE(label->text().contains(QStringLiteral("Trickhaven")));
            }
            EXPECT_EQ(label->font().pixelSize(), PointsToPixels(c.points));
            EXPECT_TRUE(label->alignment().testFlag(Qt::AlignHCenter));
            EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(Qt::black));
            // The whole text shows inside the label; only the lowest row of
            // the last line, kept for descenders, may fall outside.
            EXPECT_LE(label->heightForWidth(label->width()), label->height() + 1);
        } else {
            EXPECT_EQ(qobject_cast<QAbstractButton*>(control)->text(), QString::fromLatin1(c.text));
        }
        const QImage face = control->grab().toImage();
        EXPECT_EQ(face.pixelColor(2, 2), c.back);
    }
    QLabel* icon = Control<QLabel>("picIcon");
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(icon->pos(), TwipsToPixels(240, 240));
    EXPECT_EQ(icon->size(), icon->pixmap().deviceIndependentSize().toSize());
    EXPECT_FALSE(icon->accessibleName().isEmpty());
}

TEST_F(AboutBoxTest, BackgroundAndEtchedRule) {
    const QImage shot = box->grab().toImage();
    const int x = box->width() / 2;
    EXPECT_EQ(shot.pixelColor(x, 162), kNavy);
    EXPECT_EQ(shot.pixelColor(x, 163), QColor(128, 128, 128));
    EXPECT_EQ(shot.pixelColor(x, 164), QColor(Qt::white));
    EXPECT_EQ(shot.pixelColor(x, 165), QColor(Qt::white));
    EXPECT_EQ(shot.pixelColor(x, 166), kNavy);
    EXPECT_EQ(shot.pixelColor(5, 163), kNavy);
    EXPECT_EQ(shot.pixelColor(6, 163), QColor(128, 128, 128));
    EXPECT_EQ(shot.pixelColor(6, 164), kNavy);
    EXPECT_EQ(shot.pixelColor(377, 164), QColor(Qt::white));
    EXPECT_EQ(shot.pixelColor(378, 163), kNavy);
}

TEST_F(AboutBoxTest, OkEnterAndEscapeUnloadTheBox) {
    struct Case {
        const char* how;
        std::function<void(FrmAbout&)> act;
    };
    const Case cases[] = {
        {"OK", [](FrmAbout& b) { b.findChild<QAbstractButton*>("cmdOK")->click(); }},
        {"Enter", [](FrmAbout& b) { QTest::keyClick(&b, Qt::Key_Return); }},
        {"Escape", [](FrmAbout& b) { QTest::keyClick(&b, Qt::Key_Escape); }},
        {"close box", [](FrmAbout& b) { b.close(); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.how);
        ShowAboutBox(box, nullptr);
        ASSERT_TRUE(box);
        c.act(*box);
        DeleteClosed();
        EXPECT_TRUE(box.isNull());
    }
}

TEST_F(AboutBoxTest, ARequestWhileOpenShowsTheSameBoxAndAfterCloseANewOne) {
    FrmAbout* first = box.data();
    ShowAboutBox(box, nullptr);
    EXPECT_EQ(box.data(), first);
    box->close();
    DeleteClosed();
    ASSERT_TRUE(box.isNull());
    ShowAboutBox(box, nullptr);
    ASSERT_TRUE(box);
    EXPECT_TRUE(box->isVisible());
}

TEST_F(AboutBoxTest, SystemInfoWithoutAToolSaysSoAndTheBoxStays) {
    QApplication::setApplicationName(QStringLiteral("Trickhaven"));
    struct Case {
        const char* what;
        QByteArray content;  // empty: no tool at all
    };
    const Case cases[] = {{"no tool", {}}, {"a tool that cannot start", "not a program\n"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        QTemporaryDir tools;
        if (!c.content.isEmpty()) {
            WriteTool(tools.filePath(QStringLiteral("hardinfo")), c.content);
        }
        box->SetSystemInfoSearch({QStringLiteral("hardinfo")}, {tools.path()});
        MessageSeen message;
        message.AnswerNext();
        Control<QAbstractButton>("cmdSysInfo")->click();
        EXPECT_TRUE(message.shown);
        EXPECT_EQ(message.text, kUnavailable);
        EXPECT_EQ(message.title, QStringLiteral("Trickhaven"));
        EXPECT_EQ(message.buttons, 1);
        DeleteClosed();
        ASSERT_TRUE(box);
        EXPECT_TRUE(box->isVisible());
    }
}

TEST_F(AboutBoxTest, SystemInfoStartsTheFirstToolFoundAndSaysNothing) {
    ASSERT_TRUE(folder.isValid());
    const QString ran = folder.filePath(QStringLiteral("ran"));
    for (const char* tool : {"kinfocenter", "xfce4-taskmanager"}) {
        WriteTool(folder.filePath(QString::fromLatin1(tool)),
                  QByteArray("#!/bin/sh\necho ") + tool + " >> '" + QFile::encodeName(ran) + "'\n");
    }
    box->SetSystemInfoSearch({QStringLiteral("gnome-system-monitor"), QStringLiteral("kinfocenter"),
                              QStringLiteral("xfce4-taskmanager")},
                             {folder.path()});
    MessageSeen message;
    message.AnswerNext();
    Control<QAbstractButton>("cmdSysInfo")->click();
    QFile log(ran);
    for (int waited = 0; waited < 5000 && !log.exists(); waited += 50) {
        QTest::qWait(50);
    }
    QTest::qWait(200);
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_EQ(log.readAll(), QByteArray("kinfocenter\n"));
    EXPECT_FALSE(message.shown);
    EXPECT_TRUE(box->isVisible());
}

}  // namespace
}  // namespace trickhaven
