// The machine under the game: its clock, its waits and its sounds.
#include "forms/qt_platform.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
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

int messages = 0;

TEST(QtPlatformTest, AMissingSoundIsSilent) {
    QtPlatform platform(std::filesystem::temp_directory_path() / "no such folder");
    messages = 0;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString&) { ++messages; });
    platform.PlaySound("riffle.wav");
    platform.PlaySound("riffle.wav");
    qInstallMessageHandler(previous);
    EXPECT_EQ(messages, 0);
}

}  // namespace

}  // namespace trickhaven
