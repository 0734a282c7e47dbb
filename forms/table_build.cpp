#include "forms/table_build.h"

#include "forms/table_widgets.h"
#include "forms/twips.h"

namespace trickhaven {

namespace {

QWidget* MakeWidget(const ControlDesign& design, QWidget* container) {
    const QString caption = QString::fromUtf8(design.caption);
    switch (design.kind) {
        case ControlKind::Button:
            return new TableButton(caption, container);
        case ControlKind::Panel:
            return new TablePanel(caption, container);
        case ControlKind::ClickLabel:
            return new ClickableLabel(caption, container);
        case ControlKind::Label:
            break;
    }
    return new QLabel(caption, container);
}

void ApplyColours(const ControlDesign& design, QWidget& widget) {
    const bool button = design.kind == ControlKind::Button;
    const QPalette::ColorRole backRole = button ? QPalette::Button : QPalette::Window;
    const QPalette::ColorRole textRole = button ? QPalette::ButtonText : QPalette::WindowText;
    QPalette colours = widget.palette();
    if (design.back) {
        colours.setColor(backRole, DesignColour(*design.back));
        widget.setAutoFillBackground(!button);
    }
    colours.setColor(textRole, DesignColour(design.text.value_or(DesignBlack)));
    widget.setPalette(colours);
}

void ApplyLabelLook(const ControlDesign& design, QLabel& label) {
    label.setTextFormat(Qt::PlainText);
    // The text starts at the border, also in a label with a border.
    label.setIndent(0);
    label.setAlignment((design.centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignTop);
    // A label with room for several lines breaks its text at the blanks; a
    // one-line label keeps its line whole, cut at its edges when too long.
    label.setWordWrap(label.height() >= 2 * label.fontMetrics().height());
    if (design.border) {
        label.setFrameStyle(QFrame::Panel | QFrame::Sunken);
        label.setLineWidth(1);
    }
}

}  // namespace

QFont DesignFont(const FontDesign& design) {
    QFont font(TableFontFamily);
    font.setPixelSize(PointsToPixels(design.points));
    font.setBold(design.bold);
    font.setItalic(design.italic);
    font.setUnderline(design.underline);
    return font;
}

QColor DesignColour(Rgb rgb) {
    return {rgb.red, rgb.green, rgb.blue};
}

QWidget* BuildControl(const ControlDesign& design, QWidget* container) {
    QWidget* widget = MakeWidget(design, container);
    widget->setObjectName(design.name);
    widget->setGeometry(TwipsToPixels(design.place.left, design.place.top, design.place.width,
                                      design.place.height));
    ApplyColours(design, *widget);
    if (design.font) {
        widget->setFont(DesignFont(*design.font));
    }
    if (auto* label = qobject_cast<QLabel*>(widget)) {
        ApplyLabelLook(design, *label);
    }
    widget->setToolTip(QString::fromUtf8(design.toolTip));
    // Labels and buttons are named by their text as it changes; a panel by
    // its caption, which a screen reader would not find in its border.
    if (design.kind == ControlKind::Panel) {
        widget->setAccessibleName(QString::fromUtf8(design.caption));
    }
    widget->setVisible(design.visible);
    return widget;
}

QWidget* BuildStroke(const StrokeDesign& design, QWidget* container) {
    auto* stroke = new TableStroke(design.penWidth, design.outline, container);
    stroke->setObjectName(design.name);
    const TwipsBox& box = design.place;
    if (design.outline) {
        stroke->setGeometry(TwipsToPixels(box.left, box.top, box.width, box.height));
    } else {
        // The pen is centred on the line, as the design draws it.
        const QPoint from = TwipsToPixels(box.left, box.top);
        stroke->setGeometry(from.x(), from.y() - design.penWidth / 2, TwipsToPixels(box.width),
                            design.penWidth);
    }
    QPalette colours = stroke->palette();
    colours.setColor(QPalette::WindowText, DesignColour(design.colour));
    stroke->setPalette(colours);
    stroke->lower();
    return stroke;
}

void FitWidthToText(QLabel& label) {
    // The bounding box holds the overhang of italic letters.
    const int text = label.fontMetrics().boundingRect(label.text()).width();
    label.resize(text + 2 * label.frameWidth() + 2, label.height());
}

}  // namespace trickhaven
