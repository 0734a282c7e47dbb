#include "forms/about_box.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QProcess>
#include <QScreen>
#include <QStandardPaths>
#include <QStyle>

#include "forms/caption_fit.h"
#include "forms/card_art.h"
#include "forms/table_widgets.h"
#include "forms/twips.h"
#include "forms/window_placement.h"

namespace trickhaven {

namespace {

const QString kProgramName = QStringLiteral("Trickhaven");
constexpr int kMajor = 2;
constexpr int kMinor = 0;
constexpr int kRevision = 7;

const QColor kFormBack(0, 0, 128);
const QColor kLabelBack(192, 255, 255);
const QColor kButtonBack(192, 255, 192);
const QColor kRuleShadow(128, 128, 128);

QFont AboutFont(double points) {
    QFont font(QStringLiteral("Times New Roman"));
    font.setPixelSize(PointsToPixels(points));
    font.setBold(true);
    return font;
}

QLabel* AddLabel(QWidget* form, const char* name, QRect twips, double points, const QString& text) {
    auto* label = new QLabel(text, form);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(TwipsToPixels(twips.x(), twips.y(), twips.width(), twips.height()));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setWordWrap(true);
    label->setFont(AboutFont(points));
    QPalette colours = label->palette();
    colours.setColor(QPalette::Window, kLabelBack);
    colours.setColor(QPalette::WindowText, Qt::black);
    label->setPalette(colours);
    label->setAutoFillBackground(true);
    label->setAccessibleName(text);
    return label;
}

TableButton* AddButton(QWidget* form, const char* name, QRect twips, const QString& caption) {
    auto* button = new TableButton(caption, form);
    button->setObjectName(QString::fromLatin1(name));
    button->setGeometry(TwipsToPixels(twips.x(), twips.y(), twips.width(), twips.height()));
    button->setFont(AboutFont(8.25));
    QPalette colours = button->palette();
    colours.setColor(QPalette::Button, kButtonBack);
    colours.setColor(QPalette::ButtonText, Qt::black);
    button->setPalette(colours);
    button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    return button;
}

}  // namespace

FrmAbout::FrmAbout(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::CustomizeWindowHint |
                          Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      tools_{QStringLiteral("gnome-system-monitor"), QStringLiteral("hardinfo"),
             QStringLiteral("hardinfo2"), QStringLiteral("kinfocenter"),
             QStringLiteral("xfce4-taskmanager")} {
    setObjectName(QStringLiteral("frmAbout"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("About ") + kProgramName);
    setWindowIcon(CardArt::ProgramIcon());
    setFixedSize(TwipsToPixels(5730), TwipsToPixels(3555));
    QPalette colours = palette();
    colours.setColor(QPalette::Window, kFormBack);
    setPalette(colours);
    setAutoFillBackground(true);

    auto* icon = new QLabel(this);
    icon->setObjectName(QStringLiteral("picIcon"));
    icon->setPixmap(CardArt::ProgramIcon().pixmap(32, 32));
    icon->move(TwipsToPixels(240, 240));
    icon->adjustSize();
    icon->setAccessibleName(kProgramName + QStringLiteral(" icon"));

    AddLabel(this, "lblTitle", {1050, 240, 3885, 480}, 12, kProgramName);
    AddLabel(this, "lblVersion", {1050, 780, 3885, 225}, 10.5,
             QStringLiteral("Version %1.%2.%3").arg(kMajor).arg(kMinor).arg(kRevision));
    AddLabel(
        this, "lblDescription", {1050, 1125, 3885, 1170}, 12,
        QStringLiteral("A fascinating game of cards which can keep you happy for many hours."));
    AddLabel(this, "lblDisclaimer", {255, 2625, 3870, 825}, 12,
             QStringLiteral(
                 "Trickhaven is free to play and share; its authors keep the rights to its code."));

    TableButton* ok = AddButton(this, "cmdOK", {4245, 2625, 1260, 345}, QStringLiteral("OK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    TableButton* sysInfo =
        AddButton(this, "cmdSysInfo", {4260, 3075, 1245, 345}, QStringLiteral("&System Info..."));
    connect(sysInfo, &QPushButton::clicked, this, &FrmAbout::StartSysInfo);
    setAccessibleName(windowTitle());
    FitCaptions(*this);
    ShowFocusToKeys(*this);
}

void FrmAbout::SetSystemInfoSearch(QStringList tools, QStringList folders) {
    tools_ = std::move(tools);
    folders_ = std::move(folders);
}

void FrmAbout::StartSysInfo() {
    for (const QString& tool : tools_) {
        const QString path = folders_.isEmpty() ? QStandardPaths::findExecutable(tool)
                                                : QStandardPaths::findExecutable(tool, folders_);
        if (path.isEmpty()) {
            continue;
        }
        if (QProcess::startDetached(path, {})) {
            return;
        }
        break;
    }
    QMessageBox message(QMessageBox::NoIcon, QApplication::applicationName(),
                        QStringLiteral("System Information Is Unavailable At This Time"),
                        QMessageBox::Ok, this);
    message.exec();
}

void FrmAbout::paintEvent(QPaintEvent*) {
    // The etched rule: a grey line with a white one of width 2 beneath it.
    QPainter painter(this);
    const int right = TwipsToPixels(5654);
    const QPoint shadow = TwipsToPixels(90, 2445);
    const QPoint light = TwipsToPixels(105, 2460);
    painter.fillRect(QRect(shadow, QPoint(right, shadow.y())), kRuleShadow);
    painter.fillRect(QRect(light, QPoint(right, light.y() + 1)), Qt::white);
}

void ShowAboutBox(QPointer<FrmAbout>& box, QWidget* parent) {
    if (!box) {
        box = new FrmAbout(parent);
        CentreOnScreen(*box);
    }
    BringUp(*box);
}

}  // namespace trickhaven
