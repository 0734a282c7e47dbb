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
