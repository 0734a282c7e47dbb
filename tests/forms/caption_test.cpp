// Every caption of every form and message shows whole: no text is wider or
// taller than what its control shows, and no control leaves its window.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

#include "forms/about_box.h"
#include "forms/help_pages.h"
#include "forms/mform_deluxe.h"
#include "forms_test_support.h"
#include "tools/gallery/game_messages.h"

namespace trickhaven {
namespace {

QString Shown(const QWidget& control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        return QString(button->text()).remove(QLatin1Char('&'));
    }
    const auto* label = qobject_cast<const QLabel*>(&control);
    return label ? label->text() : control.property("text").toString();
}

// A font below the design's is the largest in which the caption fits.
void ExpectSteppedNoFurther(const QWidget& control, int designPixels) {
    QFont larger = control.font();
    larger.setPixelSize(larger.pixelSize() + 1);
    EXPECT_TRUE(larger.pixelSize() > designPixels ||
                QFontMetrics(larger).horizontalAdvance(Shown(control)) > control.width() - 2)
        << control.objectName().toStdString();
}

void ExpectCaptionsWhole(QWidget& form) {
    // The name labels follow the names the player types.
    const QStringList names{"LblBotsName", "LblPlayer0", "LblBName", "LblPname1"};
    for (QWidget* control : form.findChildren<QWidget*>()) {
        const QString text = Shown(*control);
        const auto* label = qobject_cast<const QLabel*>(control);
        if (text.isEmpty() || names.contains(control->objectName())) {
            continue;
        }
        const QFontMetrics metrics(control->font());
        const QRect box = control->contentsRect();
        const QRect needed = label && label->wordWrap()
                                 ? metrics.boundingRect(box, Qt::TextWordWrap, text)
                                 : QRect(0, 0, metrics.horizontalAdvance(text), metrics.height());
        const QRect onForm(control->mapTo(&form, QPoint(0, 0)), control->size());
        SCOPED_TRACE(control->objectName().toStdString() + ": \"" + text.toStdString() + "\"");
        EXPECT_LE(needed.width(), box.width());
        EXPECT_LE(needed.height(), box.height());
        EXPECT_TRUE(form.rect().contains(onForm)) << onForm.x() << "," << onForm.y();
    }
}

TEST(CaptionTest, EveryCaptionOfTheTableAndItsPanelsShowsWhole) {
    PinochleTable table;
    table.resize(420, 380);  // below the window's smallest size
    table.show();
    for (const char* sort : {"Sort Same", "Sort Suits"}) {
        table.SetCaption(TableLabel::LblStock, "Stock 24");
        table.SetCaption(TableLabel::CmdSort, sort);
        ExpectCaptionsWhole(*table.Surface());
        ExpectCaptionsWhole(table);
    }
    // Grown around its centre, the robot's keeps its design font.
    EXPECT_EQ(FindControl(table, "Label3")->font().pixelSize(), 15);
    ExpectSteppedNoFurther(*FindControl(table, "LblTotal"), 15);
}

TEST(CaptionTest, EveryMessageOfTheGameShowsItsButtonsAndTitleWhole) {
    MFormDeluxe form;
    for (const GameMessage& message : GameMessages()) {
        SCOPED_TRACE(message.title);
        const auto text = QString::fromStdString(message.text);
        const auto title = QString::fromStdString(message.title);
        if (message.kind == MessageKind::Deluxe) {
            form.Prepare(text, QString::fromStdString(message.button0),
                         QString::fromStdString(message.button1),
                         QString::fromStdString(message.button2), message.icon, title);
            ExpectCaptionsWhole(form);
            for (int i = 0; i < 3; ++i) {
                ExpectSteppedNoFurther(*form.findChild<QLabel*>(QString("Label1_%1").arg(i)), 16);
            }
            continue;
        }
        QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Ok);
        QInputDialog input;
        input.setLabelText(text);
        QDialog& dialog = message.kind == MessageKind::Input ? static_cast<QDialog&>(input) : box;
        dialog.show();
        ExpectCaptionsWhole(dialog);
    }
}

TEST(CaptionTest, EveryCaptionOfTheHelpPagesAndTheAboutBoxShowsWhole) {
    HelpPages help;
    for (int page = 1; page <= 3; ++page) {
        help.Show(page);
        ExpectCaptionsWhole(*help.Page(page));
    }
    FrmAbout about;
    ExpectCaptionsWhole(about);
}

}  // namespace
}  // namespace trickhaven
