// SPDX-License-Identifier: MIT
#include "platform/templates_menu/template_record.h"

#include <cstdlib>

/// Whatever the record of templates holds: no name of it leads out of the folder, and it survives being
/// written.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const TemplateRecord record = TemplateRecord::parse(bytes);
    for (const RecordedTemplate &entry : record.entries)
        if (entry.name.isEmpty() || entry.name.contains('/') || entry.name == "..")
            std::abort();
    if (TemplateRecord::parse(record.encoded()) != record)
        std::abort();
    return 0;
}
