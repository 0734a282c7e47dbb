#include "app/quiet_toolkit.h"

#include <QLoggingCategory>

namespace trickhaven {

void QuietenToolkit() {
    QLoggingCategory::setFilterRules(
        QStringLiteral("*.debug=false\n*.info=false\n*.warning=false"));
}

}  // namespace trickhaven
