// The words of the three rules pages, one entry per printed line. An empty
// entry is an empty line; the blanks at the start of a line are its indent.
#pragma once

#include <QStringList>

namespace trickhaven {

// Page 1, 2 or 3.
QStringList HelpPageText(int page);

}  // namespace trickhaven
