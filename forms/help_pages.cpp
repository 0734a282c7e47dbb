#include "forms/help_pages.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "forms/caption_fit.h"
#include "forms/help_design.h"
#include "forms/help_texts.h"
#include "forms/table_widgets.h"
#include "forms/twips.h"
#include "forms/window_placement.h"

namespace trickhaven {

namespace {

const QColor kPageBack(0, 0, 128);
const QColor kPageInk(192, 255, 255);

QFont PageFont(double points) {
    QFont font(QStringLiteral("Times New Roman"));
    font.setPixelSize(PointsToPixels(points));
    font.setBold(true);
    return font;
}

QPixmap SmallCard(CardArt& art, int card, qreal ratio) {
    const int side = TwipsToPixels(HelpPictureSize);
    QPixmap picture =
        art.Image(card, ratio)
            .scaled(QSize(side, side) * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

// A page reads as a dialog named by its title that says its words and
// holds its buttons; the pictures and captions are in the words.
class HelpPageAccessible : public QAccessibleWidget {
public:
    explicit HelpPageAccessible(HelpPage* page) : QAccessibleWidget(page, QAccessible::Dialog) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description) return Page()->Words();
        return QAccessibleWidget::text(kind);
    }
    int childCount() const override { return static_cast<int>(Buttons().size()); }
    QAccessibleInterface* child(int index) const override {
        const QList<QAbstractButton*> buttons = Buttons();
        if (index < 0 || index >= buttons.size()) return nullptr;
        return QAccessible::queryAccessibleInterface(buttons.at(index));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(Buttons().indexOf(qobject_cast<QAbstractButton*>(child->object())));
    }

private:
    HelpPage* Page() const { return static_cast<HelpPage*>(widget()); }
    QList<QAbstractButton*> Buttons() const {
        return Page()->findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly);
    }
};

QAccessibleInterface* HelpPageAccessibility(const QString&, QObject* object) {
    if (auto* page = qobject_cast<HelpPage*>(object)) return new HelpPageAccessible(page);
    return nullptr;
}

std::unique_ptr<HelpPage> LoadPage(int page, CardArt& art) {
    switch (page) {
        case 1:
            return std::make_unique<FrmHelp>(art);
        case 2:
            return std::make_unique<FrmHelp2>(art);
        default:
            return std::make_unique<FrmHelp3>(art);
    }
}

}  // namespace

HelpPage::HelpPage(int page, CardArt& art)
    : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      lines_(HelpPageText(page)) {
    static const bool accessible = [] {
        QAccessible::installFactory(HelpPageAccessibility);
        return true;
    }();
    (void)accessible;
    const HelpPageDesign& design = HelpDesign(page);
    keepsPrint_ = design.keepsPrint;
    setObjectName(QString::fromLatin1(design.name));
    setWindowTitle(QString::fromLatin1(design.title));
    setFixedSize(TwipsToPixels(design.width), TwipsToPixels(design.height));
    QPalette colours = palette();
    colours.setColor(QPalette::Window, kPageBack);
    colours.setColor(QPalette::WindowText, kPageInk);
    setPalette(colours);
    setAutoFillBackground(true);
    setFont(PageFont(design.points));
    AddPictures(design, art);
    AddLabels(design);
    AddButtons(design);
    FitCaptions(*this);
    ShowFocusToKeys(*this);
    if (keepsPrint_) {
        const qreal ratio = devicePixelRatioF();
        keptPrint_ = QPixmap(size() * ratio);
        keptPrint_.setDevicePixelRatio(ratio);
        keptPrint_.fill(kPageBack);
        QPainter painter(&keptPrint_);
        Print(painter);
    }
}

int HelpPage::LineHeight() const {
    return fontMetrics().height();
}

QString HelpPage::Words() const {
    QStringList words;
    for (const QString& line : lines_ + captions_) {
        if (!line.trimmed().isEmpty()) words.push_back(line.simplified());
    }
    return words.join(QLatin1Char(' '));
}

void HelpPage::keyPressEvent(QKeyEvent* event) {
    auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
    switch (event->key()) {
        case Qt::Key_Escape:
            exit_->click();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (focused != nullptr) {
                focused->click();
                return;
            }
            break;
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

void HelpPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (keepsPrint_) {
        painter.drawPixmap(0, 0, keptPrint_);
        return;
    }
    Print(painter);
}

void HelpPage::Print(QPainter& painter) {
    painter.setFont(font());
    painter.setPen(kPageInk);
    const int ascent = fontMetrics().ascent();
    printY_ = 0;
    for (const QString& line : lines_) {
        if (!line.isEmpty()) {
            painter.drawText(0, printY_ + ascent, line);
        }
        printY_ += LineHeight();
        ++linesPrinted_;
    }
}

void HelpPage::AddButtons(const HelpPageDesign& design) {
    for (const HelpButtonDesign& row : design.buttons) {
        auto* button = new TableButton(QString::fromLatin1(row.caption), this);
        button->setObjectName(QString::fromLatin1(row.name));
        button->setGeometry(TwipsToPixels(row.left, row.top, row.width, row.height));
        if (row.points > 0) {
            button->setFont(PageFont(row.points));
        }
        QPalette colours = button->palette();
        colours.setColor(QPalette::Button, kPageInk);
        colours.setColor(QPalette::ButtonText, Qt::black);
        button->setPalette(colours);
        button->setToolTip(QString::fromLatin1(row.toolTip));
        if (row.nextPage == 0) exit_ = button;
        connect(button, &QPushButton::clicked, this, [this, next = row.nextPage] {
            hide();
            if (next != 0) {
                emit pageRequested(next);
            }
        });
    }
}

void HelpPage::AddPictures(const HelpPageDesign& design, CardArt& art) {
    const int side = TwipsToPixels(HelpPictureSize);
    for (const HelpPictureDesign& row : design.pictures) {
        auto* picture = new QLabel(this);
        picture->setObjectName(QString::fromLatin1(row.name));
        picture->setGeometry(TwipsToPixels(row.left), TwipsToPixels(row.top), side, side);
        picture->setAlignment(Qt::AlignCenter);
        picture->setPixmap(SmallCard(art, row.card, devicePixelRatioF()));
    }
}

void HelpPage::AddLabels(const HelpPageDesign& design) {
    for (const HelpLabelDesign& row : design.labels) {
        auto* label = new QLabel(QString::fromLatin1(row.caption), this);
        label->setObjectName(QString::fromLatin1(row.name));
        label->setGeometry(TwipsToPixels(row.left, row.top, row.width, row.height));
        label->setTextFormat(Qt::PlainText);
        label->setFont(PageFont(HelpLabelPoints));
        label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        label->setWordWrap(true);
        captions_.push_back(label->text());
    }
}

HelpPages::HelpPages() = default;
HelpPages::~HelpPages() = default;

void HelpPages::Show(int page) {
    std::unique_ptr<HelpPage>& slot = pages_.at(static_cast<std::size_t>(page - 1));
    if (!slot) {
        slot = LoadPage(page, art_);
        QObject::connect(slot.get(), &HelpPage::pageRequested, slot.get(),
                         [this](int next) { Show(next); });
        CentreOnScreen(*slot);
    }
    BringUp(*slot);
}

HelpPage* HelpPages::Page(int page) const {
    return pages_.at(static_cast<std::size_t>(page - 1)).get();
}

}  // namespace trickhaven
