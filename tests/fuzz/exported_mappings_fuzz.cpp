// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_document.h"
#include "keymapper/key_rule_index.h"

#include <cstdlib>

/// Whatever a user is given to import: it is refused, or it survives being written and read, and an engine
/// can be given its rules.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const auto exported =
        decodeExportedMappings(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (!exported)
        return 0;
    if (decodeExportedMappings(encode(*exported)) != exported)
        std::abort();
    const KeyRuleIndex index(exported->customMappings);
    for (const KeyMapping &rule : exported->customMappings)
        if (rule.excludedApps.isEmpty() && !index.find(rule.fromKeyCode, rule.fromModifiers, {}))
            std::abort();
    return 0;
}
