// SPDX-License-Identifier: MIT
#include "platform/pasteboard/paste_targets.h"

#include "platform/pasteboard/copied_files.h"
#include "platform/pasteboard/copied_text.h"

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

std::optional<QByteArray> uris(const QByteArray &, QByteArray bytes) {
    return fileUrlsOfUriList(bytes);
}

std::optional<QByteArray> files(const QByteArray &, QByteArray bytes) {
    return fileUrlsOfCopiedFiles(bytes);
}

std::optional<QByteArray> picture(const QByteArray &, QByteArray bytes) {
    return bytes.isEmpty() ? std::nullopt : std::optional(std::move(bytes));
}

/// A picture that is offered in neither PNG nor TIFF is none that can be kept; programs that copy pictures
/// offer PNG.
struct Readable {
    PasteType type;
    const char *target;
    std::optional<QByteArray> (*understand)(const QByteArray &type, QByteArray bytes);
};
constexpr std::array readable = {
    Readable{PasteType::fileUrls, "text/uri-list", uris},
    Readable{PasteType::fileUrls, "x-special/gnome-copied-files", files},
    Readable{PasteType::fileUrls, "x-special/mate-copied-files", files},
    Readable{PasteType::png, "image/png", picture},
    Readable{PasteType::tiff, "image/tiff", picture},
    Readable{PasteType::html, "text/html", htmlText},
    Readable{PasteType::html, "text/html;charset=utf-8", htmlText},
    Readable{PasteType::rtf, "text/rtf", richText},
    Readable{PasteType::rtf, "application/rtf", richText},
    Readable{PasteType::rtf, "text/richtext", richText},
    Readable{PasteType::plainText, "UTF8_STRING", plainText},
    Readable{PasteType::plainText, "text/plain;charset=utf-8", plainText},
    Readable{PasteType::plainText, "text/plain;charset=UTF-8", plainText},
    Readable{PasteType::plainText, "text/plain", plainText},
    Readable{PasteType::plainText, "STRING", plainText},
    Readable{PasteType::plainText, "TEXT", plainText},
};

QByteArray same(const QByteArray &bytes) {
    return bytes;
}

QByteArray secretWord(const QByteArray &) {
    return QByteArrayLiteral("secret");
}

/// An item is offered under the target, in the form that `make` gives it.
struct Writable {
    PasteType type;
    const char *target;
    const char *answerType;
    QByteArray (*make)(const QByteArray &bytes);
};
constexpr std::array writable = {
    Writable{PasteType::fileUrls, "text/uri-list", "text/uri-list", uriList},
    Writable{PasteType::fileUrls, "x-special/gnome-copied-files", "x-special/gnome-copied-files",
             copiedFiles},
    Writable{PasteType::fileUrls, "x-special/mate-copied-files", "x-special/mate-copied-files", copiedFiles},
    Writable{PasteType::png, "image/png", "image/png", same},
    Writable{PasteType::tiff, "image/tiff", "image/tiff", same},
    Writable{PasteType::html, "text/html", "text/html", same},
    Writable{PasteType::rtf, "text/rtf", "text/rtf", same},
    Writable{PasteType::rtf, "application/rtf", "application/rtf", same},
    Writable{PasteType::rtf, "text/richtext", "text/richtext", same},
    Writable{PasteType::plainText, "UTF8_STRING", "UTF8_STRING", same},
    Writable{PasteType::plainText, "text/plain;charset=utf-8", "text/plain;charset=utf-8", same},
    Writable{PasteType::plainText, "text/plain", "text/plain", same},
    Writable{PasteType::plainText, "TEXT", "UTF8_STRING", same},
    Writable{PasteType::plainText, "STRING", "STRING", latin1Text},
    Writable{PasteType::secretMark, secretMark, secretMark, secretWord},
};

bool holds(const std::vector<PasteItem> &items, PasteType type) {
    return std::any_of(items.begin(), items.end(),
                       [type](const PasteItem &item) { return item.type == type; });
}

void add(SelectionContent &content, const PasteItem &item) {
    for (const Writable &each : writable) {
        const bool isOffered =
            std::any_of(content.begin(), content.end(),
                        [&each](const SelectionForm &form) { return form.target == each.target; });
        if (each.type == item.type && !isOffered)
            content.push_back({each.target, each.answerType,
                               [make = each.make, bytes = item.bytes] { return make(bytes); }});
    }
}

}  // namespace

std::vector<SelectionWish> wishesFor(const std::vector<PasteType> &wanted) {
    std::vector<SelectionWish> result;
    for (const PasteType type : wanted)
        for (const Readable &each : readable)
            if (each.type == type)
                result.push_back({each.target, int(type), each.understand});
    return result;
}

SelectionContent formsOf(const std::vector<PasteItem> &items) {
    SelectionContent result;
    for (const PasteItem &item : items)
        add(result, item);
    // Files are pasted into texts as their paths.
    for (const PasteItem &item : items)
        if (item.type == PasteType::fileUrls && !holds(items, PasteType::plainText))
            add(result, {PasteType::plainText, filePaths(item.bytes)});
    return result;
}

}  // namespace pimloft
