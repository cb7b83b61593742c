// SPDX-License-Identifier: MIT
#include "clipboard/utf8_text.h"

#include <QStringDecoder>

namespace pimloft {

std::optional<QString> textFromUtf8(const QByteArray &bytes) {
    // A mark at the beginning would otherwise be lost, and a part of a character at the end overlooked.
    using Flag = QStringConverter::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::ConvertInitialBom | Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

}  // namespace pimloft
