#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Listing the tests needs no screen.
    const std::unique_ptr<QApplication> application(
        GTEST_FLAG_GET(list_tests) ? nullptr : new QApplication(argc, argv));
    return RUN_ALL_TESTS();
}
