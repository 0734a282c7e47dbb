// Every caption shows whole. The design's sizes were measured in another
// font engine, and in Liberation Serif some captions are wider than their
// controls. A control with free room beside it grows around its centre;
// where growing would reach a neighbour, its font steps down, a pixel at a
// time, only as far as the caption needs.
#pragma once

#include <QFont>
#include <QRect>
#include <QString>

class QWidget;

namespace trickhaven {

// The text a label or button shows, without the "&" of its mnemonic.
QString ShownCaption(const QWidget& control);

// Whether the caption fits a box of the given size in the given font; a
// caption that wraps fits in its lines, one that doesn't on its one line.
bool CaptionFitsBox(const QString& caption, const QFont& font, QSize box, bool wraps);

// Fits the caption of a label or button, starting each time from the place
// and font it had at its first fitting, so that a shorter caption later gets
// the design back.
void FitCaption(QWidget& control);

// Fits every label and button of a form that has a caption, once all of
// them stand in their places.
void FitCaptions(QWidget& form);

}  // namespace trickhaven
