// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_document.h"

#include <cstdlib>

/// Whatever a file of mappings holds: it is refused, or its rules survive being written and read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const auto mappings = decodeMappings(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (mappings && decodeMappings(encode(*mappings)) != mappings)
        std::abort();
    return 0;
}
