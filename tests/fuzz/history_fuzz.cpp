// SPDX-License-Identifier: MIT
#include "clipboard/history_encoder.h"
#include "clipboard/history_output.h"
#include "clipboard/history_reader.h"

#include <QJsonDocument>

#include <algorithm>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace pimloft {
namespace {

using Items = std::vector<ClipboardItem>;

std::optional<Items> read(QByteArrayView bytes, qint64 piece) {
    HistoryResult result = readHistory([&bytes, piece](char *to, qint64 size) {
        const qsizetype part = std::min({qsizetype(size), qsizetype(piece), bytes.size()});
        std::copy_n(bytes.data(), part, to);
        bytes = bytes.sliced(part);
        return part;
    });
    Items *items = std::get_if<Items>(&result);
    return items ? std::optional(std::move(*items)) : std::nullopt;
}

QByteArray encoded(const Items &items) {
    const int file = memfd_create("history", MFD_CLOEXEC);
    HistoryOutput output(file);
    output.append('[');
    for (const ClipboardItem &item : items) {
        if (&item != items.data())
            output.append(',');
        encodeItem(item, output);
    }
    output.append(']');
    output.flush();
    QByteArray bytes(output.position(), Qt::Uninitialized);
    if (pread(file, bytes.data(), std::size_t(bytes.size()), 0) != bytes.size())
        std::abort();
    close(file);
    return bytes;
}

bool areTheSame(const Items &a, const Items &b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto &x, const auto &y) {
        return x.id == y.id && x.content == y.content && x.sourceApp == y.sourceApp &&
               x.sourceAppBundleID == y.sourceAppBundleID && x.timestamp == y.timestamp &&
               x.isPinned == y.isPinned;
    });
}

}  // namespace
}  // namespace pimloft

/// Whatever a history file holds: it is refused, or it is JSON to others too, is read the same however it
/// comes, and survives being written and read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace pimloft;
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const auto items = read(bytes, 1 << 20);
    const auto inPieces = read(bytes, 3);
    if (items.has_value() != inPieces.has_value() || (items && !areTheSame(*items, *inPieces)))
        std::abort();
    if (!items)
        return 0;
    if (!QJsonDocument::fromJson(bytes.toByteArray()).isArray())
        std::abort();
    const QByteArray written = encoded(*items);
    const auto again = read(written, 1 << 20);
    if (!again || !areTheSame(*items, *again) || encoded(*again) != written)
        std::abort();
    return 0;
}
