// The machine under the game: clock, the serving of events, sounds, draws.
#include "forms/qt_platform.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
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

TEST(QtPlatformTest, ServingWithoutADeadlineReturnsOnTheNextEvent) {
    QtPlatform platform(std::filesystem::temp_directory_path());
    bool served = false;
    QTimer::singleShot(20, [&served] { served = true; });
    const std::int32_t start = platform.TickCount();
    while (!served && platform.TickCount() - start < 2000) {
        platform.ServeEvents(std::nullopt);
    }
    EXPECT_TRUE(served);
}

TEST(QtPlatformTest, APassedDeadlineStillServesWhatIsPending) {
    QtPlatform platform(std::filesystem::temp_directory_path());
    bool served = false;
    QTimer::singleShot(0, [&served] { served = true; });
    const std::int32_t start = platform.TickCount();
    platform.ServeEvents(start - 10);
    EXPECT_TRUE(served);
    EXPECT_LT(platform.TickCount() - start, 100);
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

TEST(QtPlatformTest, DrawsAreUniformInTheUnitInterval) {
    QtPlatform platform(std::filesystem::temp_directory_path());
    double sum = 0;
    double first = platform.Random();
    bool varied = false;
    for (int k = 0; k < 4000; ++k) {
        if (k % 1000 == 0) {
            platform.Reseed();
        }
        const double draw = platform.Random();
        ASSERT_GE(draw, 0.0);
        ASSERT_LT(draw, 1.0);
        varied = varied || draw != first;
        sum += draw;
    }
    EXPECT_TRUE(varied);
    EXPECT_NEAR(sum / 4000, 0.5, 0.05);
}

}  // namespace

}  // namespace trickhaven
