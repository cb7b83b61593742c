// SPDX-License-Identifier: MIT
#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char **argv) {
    // Unit tests need no display; the tests that do start their own and set the platform themselves.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
