// SPDX-License-Identifier: MIT
#include "platform/pasteboard/copied_files.h"
#include "platform/pasteboard/paste_targets.h"

#include <cstdlib>

namespace {

using namespace pimloft;

/// What was understood as files is understood again once it was handed on.
void checkFiles(const QByteArray &bytes) {
    const auto urls = fileUrlsOfUriList(bytes);
    if (urls &&
        (fileUrlsOfUriList(uriList(*urls)) != urls || fileUrlsOfCopiedFiles(copiedFiles(*urls)) != urls))
        std::abort();
    for (const QByteArray &path : localPaths(urls.value_or(QByteArray())))
        if (!path.startsWith('/') || path.contains('\0'))
            std::abort();
}

}  // namespace

/// Whatever another program answers when it is asked for what it copied: it is refused or understood.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const std::vector<PasteType> all{PasteType::fileUrls, PasteType::png, PasteType::tiff,
                                     PasteType::html,     PasteType::rtf, PasteType::plainText};
    for (const SelectionWish &wish : wishesFor(all)) {
        for (const char *type : {"", "UTF8_STRING", "STRING", "COMPOUND_TEXT"}) {
            const auto understood = wish.understand(type, bytes);
            const bool isText = PasteType(wish.tag) == PasteType::plainText;
            if (understood && isText && !understood->isValidUtf8())
                std::abort();
        }
    }
    checkFiles(bytes);
    return 0;
}
