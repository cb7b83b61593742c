// SPDX-License-Identifier: MIT
// Each test starts the session that it needs. Without a display of its own: that is the session's.
#include <QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char **argv) {
    testing::InitGoogleMock(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
