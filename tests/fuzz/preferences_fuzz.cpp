// SPDX-License-Identifier: MIT
#include "platform/preferences/preferences_document.h"

#include <cstdlib>

/// Whatever a preferences file holds: it is refused, or its document survives being written and read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const auto document = parsePreferences(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (document && parsePreferences(encodePreferences(*document)) != document)
        std::abort();
    return 0;
}
