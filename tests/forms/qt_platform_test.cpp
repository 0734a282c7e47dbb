// The machine under the game: a wait of the game must leave the processor free.
#include "forms/qt_platform.h"

#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>

namespace trickhaven {

namespace {

TEST(QtPlatformTest, AWaitSleepsUntilItsDeadlineWithoutSpinning) {
    QtPlatform platform(std::filesystem::temp_directory_path());
    const std::int32_t deadline = platform.TickCount() + 300;
    const std::clock_t cpuBefore = std::clock();
    while (platform.TickCount() < deadline) {
        platform.ServeEvents(deadline);
    }
    const double cpuMs = 1000.0 * static_cast<double>(std::clock() - cpuBefore) / CLOCKS_PER_SEC;
    EXPECT_LT(platform.TickCount() - deadline, 100);
    EXPECT_LT(cpuMs, 60.0) << "a wait of 300 ms used " << cpuMs << " ms of processor";
}

}  // namespace

}  // namespace trickhaven
