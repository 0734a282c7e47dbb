// Turns the rows of the table's design into widgets.
#pragma once

#include <QFont>
#include <QLabel>
#include <QWidget>

#include "forms/table_design.h"

namespace trickhaven {

QFont DesignFont(const FontDesign& design);
QColor DesignColour(Rgb rgb);

// A label, clickable label, coloured button or panel on its container, with
// its place, colours, font, caption, tool tip and design visibility.
QWidget* BuildControl(const ControlDesign& design, QWidget* container);

// A line or an outline on its container, below the container's other
// controls.
QWidget* BuildStroke(const StrokeDesign& design, QWidget* container);

// A label whose width follows its text, as the name labels do.
void FitWidthToText(QLabel& label);

}  // namespace trickhaven
