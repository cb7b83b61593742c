// SPDX-License-Identifier: MIT
#include "updates/appcast_parser.h"
#include "updates/version_order.h"

#include <cstdlib>

/// Whatever a web site answers: it is read without harm and always in the same way, and a release that comes
/// of it keeps what is promised of one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto item = AppcastParser(bytes).parse();
    if (item != AppcastParser(bytes).parse())
        std::abort();
    if (!item)
        return 0;
    if (item->releaseNotes != item->releaseNotes->trimmed())
        std::abort();
    const QString current = QStringLiteral("1.0.0");
    const auto order = compareVersions(item->version, current);
    if (0 <=> compareVersions(current, item->version) != order)
        std::abort();
    if (item->downloadURL && !item->downloadURL->isValid())
        std::abort();
    return 0;
}
