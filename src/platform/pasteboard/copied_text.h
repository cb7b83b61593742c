// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

/// Text as programs hand it over, in the encodings that they use, made UTF-8. Pure; any thread. `type` is the
/// X11 text type of the bytes ("UTF8_STRING", "STRING"), or empty.
namespace pimloft {

/// Never refuses: what does not decode has replacement characters. Compound text is refused.
std::optional<QByteArray> plainText(const QByteArray &type, QByteArray bytes);

/// Browsers hand over UTF-8 or UTF-16. Bytes that are neither stay as they are.
std::optional<QByteArray> htmlText(const QByteArray &type, QByteArray bytes);

/// Refuses what does not look like rich text: one of its names also stands for an older format.
std::optional<QByteArray> richText(const QByteArray &type, QByteArray bytes);

/// Latin-1, as the oldest programs want it: a question mark for each character that it lacks.
QByteArray latin1Text(const QByteArray &utf8);

}  // namespace pimloft
