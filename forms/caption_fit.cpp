#include "forms/caption_fit.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QLabel>
#include <algorithm>

#include "forms/card_picture.h"

namespace trickhaven {

namespace {

constexpr const char* DesignPlace = "captionDesignPlace";
constexpr const char* DesignFontKey = "captionDesignFont";
// Below this a caption would no longer read.
constexpr int SmallestPixelSize = 6;

bool Wraps(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    return label && label->wordWrap();
}

// What the frame and bevel leave of the control's own size for its caption.
QSize Margins(const QWidget& control) {
    return control.size() - control.contentsRect().size();
}

bool Fits(const QWidget& control, const QFont& font, QSize size) {
    return CaptionFitsBox(ShownCaption(control), font, size - Margins(control), Wraps(control));
}

// How much wider the control may grow, as much on each side, before it
// leaves its container or reaches a neighbour of the same height band. Cards
// move over everything and are no neighbours; a neighbour that already
// overlaps the control (an outline around it) is none either.
int FreeRoom(const QWidget& control) {
    const QWidget* container = control.parentWidget();
    if (!container) {
        return 0;
    }
    const QRect box = control.geometry();
    const QRect inside = container->contentsRect();
    int left = box.left() - inside.left();
    int right = inside.right() - box.right();
    for (const QObject* child : container->children()) {
        const auto* other = qobject_cast<const QWidget*>(child);
        if (!other || other == &control || other->isWindow() ||
            qobject_cast<const CardPicture*>(other)) {
            continue;
        }
        const QRect place = other->geometry();
        if (place.intersects(box) || place.bottom() < box.top() || place.top() > box.bottom()) {
            continue;
        }
        if (place.right() < box.left()) {
            left = std::min(left, box.left() - place.right() - 1);
        } else {
            right = std::min(right, place.left() - box.right() - 1);
        }
    }
    return 2 * std::max(0, std::min(left, right));
}

}  // namespace

QString ShownCaption(const QWidget& control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        QString text = button->text();
        return text.replace(QStringLiteral("&&"), QStringLiteral("\x01"))
            .remove(QLatin1Char('&'))
            .replace(QLatin1Char('\x01'), QLatin1Char('&'));
    }
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return label->text();
    }
    return {};
}

bool CaptionFitsBox(const QString& caption, const QFont& font, QSize box, bool wraps) {
    const QFontMetrics metrics(font);
    if (!wraps) {
        return metrics.horizontalAdvance(caption) <= box.width() &&
               metrics.height() <= box.height();
    }
    const QStringList words = caption.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const bool wordsFit = std::all_of(words.begin(), words.end(), [&](const QString& word) {
        return metrics.horizontalAdvance(word) <= box.width();
    });
    const QRect lines =
        metrics.boundingRect(QRect(0, 0, box.width(), QWIDGETSIZE_MAX), Qt::TextWordWrap, caption);
    return wordsFit && lines.height() <= box.height();
}

void FitCaption(QWidget& control) {
    if (!control.property(DesignPlace).isValid()) {
        control.setProperty(DesignPlace, control.geometry());
        control.setProperty(DesignFontKey, control.font());
    }
    const QRect place = control.property(DesignPlace).toRect();
    QFont font = control.property(DesignFontKey).value<QFont>();
    control.setGeometry(place);
    control.setFont(font);
    // The largest font that fits in some width the room allows, in the
    // least of those widths.
    const int room = FreeRoom(control);
    for (;; font.setPixelSize(font.pixelSize() - 1)) {
        for (int grow = 0; grow <= room; ++grow) {
            const QRect grown = place.adjusted(-grow / 2, 0, grow - grow / 2, 0);
            if (Fits(control, font, grown.size()) || font.pixelSize() <= SmallestPixelSize) {
                control.setGeometry(grown);
                control.setFont(font);
                return;
            }
        }
    }
}

void FitCaptions(QWidget& form) {
    for (QWidget* control : form.findChildren<QWidget*>()) {
        if (!ShownCaption(*control).isEmpty()) {
            FitCaption(*control);
        }
    }
}

}  // namespace trickhaven
