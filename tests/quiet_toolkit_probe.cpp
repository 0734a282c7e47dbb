// Speaks as the toolkit does on a machine without sound, and as a real fault
// does, after the game has quietened the toolkit; quiet_check.cmake reads
// what reaches standard error.
#include <QCoreApplication>
#include <QLoggingCategory>

#include "app/quiet_toolkit.h"

namespace {
Q_LOGGING_CATEGORY(soundEffects, "qt.multimedia.soundeffect")
}

int main(int argc, char* argv[]) {
    trickhaven::QuietenToolkit();
    QCoreApplication probe(argc, argv);
    qWarning("No audio device detected");
    qCWarning(soundEffects, "no sound server");
    qCritical("a real fault");
    return 0;
}
