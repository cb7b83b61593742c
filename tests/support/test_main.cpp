// SPDX-License-Identifier: MIT
// Built twice, with and without widgets: where there are widgets, Qt takes the application for a
// QApplication.
#ifdef QT_WIDGETS_LIB
#include <QApplication>
using Application = QApplication;
#else
#include <QGuiApplication>
using Application = QGuiApplication;
#endif

#include <gmock/gmock.h>

int main(int argc, char **argv) {
    // Unit tests need no display; the tests that do start their own and set the platform themselves.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    // Whoever only wants their names need not wait for an application, nor read what Qt says at its start.
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    Application application(argc, argv);
    return RUN_ALL_TESTS();
}
