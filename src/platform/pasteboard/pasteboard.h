// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QObject;

namespace pimloft {

/// The kinds of content that the program reads and writes. The mark, whose bytes do not count, is written
/// beside what other programs are to keep out of their histories; that it is there is told by the origin.
enum class PasteType { fileUrls, png, tiff, html, rtf, plainText, secretMark };

/// What became of a read.
struct PasteData {
    enum Status {
        present,
        absent,      ///< this change offers none of the wanted types
        tooLarge,    ///< cut off at the cap
        superseded,  ///< something newer has been copied
        failed,      ///< the owner is gone or did not answer in time
    } status;
    PasteType type;
    QByteArray bytes;
};

/// Whose content it is.
struct PasteOrigin {
    bool isSecret = false;            ///< its owner asks for it to be kept out of histories
    std::optional<QString> bundleId;  ///< the owner's identifier; absent when the desktop does not know it

    friend bool operator==(const PasteOrigin &, const PasteOrigin &) = default;
};

/// One form of the content to be written. Text is UTF-8; file URLs are one per line.
struct PasteItem {
    PasteType type;
    QByteArray bytes;
};

/// The general pasteboard. Main thread. Nothing here waits for another program.
class PasteboardService {
public:
    virtual ~PasteboardService() = default;

    /// Grows with every copy made anywhere; own writes count at once. Never asks the desktop.
    virtual qint64 changeCount() const = 0;

    /// Asks whose content `change` is, without reading any of it. `done` is called exactly once, queued,
    /// never after `context` is gone; within 2 s; with nothing when something newer has been copied meanwhile
    /// or the owner did not answer.
    virtual void origin(qint64 change, QObject *context,
                        std::function<void(std::optional<PasteOrigin>)> done) = 0;

    /// Reads the first of `wanted` that `change` offers. `done` is called exactly once, queued, never after
    /// `context` is gone; within 2 s; a transfer above `cap` bytes is cut off; content of a newer owner is
    /// never answered for an older change.
    virtual void read(qint64 change, std::vector<PasteType> wanted, qsizetype cap, QObject *context,
                      std::function<void(PasteData)> done) = 0;

    /// Replaces the content. On return other programs see it, and the answer is the count that includes it.
    virtual qint64 write(std::vector<PasteItem> items) = 0;
};

}  // namespace pimloft
