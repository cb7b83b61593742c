// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <variant>

namespace pimloft {

/// Plain text.
struct TextContent {
    QString string;
    friend bool operator==(const TextContent &, const TextContent &) = default;
};

/// The bytes of an RTF document.
struct RichTextContent {
    QByteArray bytes;
    friend bool operator==(const RichTextContent &, const RichTextContent &) = default;
};

/// An encoded picture, PNG or TIFF, as it was copied.
struct ImageContent {
    QByteArray bytes;
    friend bool operator==(const ImageContent &, const ImageContent &) = default;
};

/// One file or folder.
struct FileURLContent {
    QUrl url;
    friend bool operator==(const FileURLContent &, const FileURLContent &) = default;
};

/// A piece of HTML.
struct HtmlContent {
    QString string;
    friend bool operator==(const HtmlContent &, const HtmlContent &) = default;
};

/// What was copied. Equal when kind and payload are, which is what makes a copy a duplicate. A value;
/// payloads are shared between copies. Any thread.
using ClipboardContent =
    std::variant<TextContent, RichTextContent, ImageContent, FileURLContent, HtmlContent>;

}  // namespace pimloft
