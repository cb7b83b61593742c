// SPDX-License-Identifier: MIT
#include "platform/appearance/xsettings.h"

/// Whatever a program publishes as the desktop's settings: it is read without harm.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    pimloft::prefersDark(pimloft::parseXSettings(bytes));
    return 0;
}
