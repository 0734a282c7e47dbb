// The platform of the real window with waits that spin: each round serves
// what is pending and returns at once, as a loop around DoEvents would. Only
// for comparison with the blocking waits of the game.
#pragma once

#include <QCoreApplication>

#include "forms/qt_platform.h"

namespace trickhaven::bench {

class SpinningPlatform : public QtPlatform {
public:
    using QtPlatform::QtPlatform;

    void ServeEvents(std::optional<std::int32_t>) override { QCoreApplication::processEvents(); }
};

}  // namespace trickhaven::bench
