// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <memory>

namespace pimloft {

/// Gathers what is written to a file into large pieces, and remembers the first failure: then everything else
/// is dropped. Main thread.
class HistoryOutput {
public:
    /// The file begins empty; the descriptor stays the caller's.
    explicit HistoryOutput(int descriptor);

    void append(QByteArrayView bytes);
    void append(char c) { append(QByteArrayView(&c, 1)); }

    /// Room for so many bytes, at most `largestRoom`; `advance` then takes those up to `end`.
    static constexpr qsizetype largestRoom = 256 * 1024;
    char *room(qsizetype bytes);
    void advance(const char *end) { used_ = end - buffer_.get(); }

    /// Copies a range of another file. That file being too short is a failure.
    void copyFrom(int source, qint64 offset, qint64 size);

    /// Writes what is gathered. Zero when all went well, else the error number of the first failure.
    int flush();

    /// How much has been appended.
    qint64 position() const { return written_ + used_; }

private:
    int descriptor_;
    std::unique_ptr<char[]> buffer_;
    qsizetype used_ = 0;
    qint64 written_ = 0;
    int error_ = 0;
};

}  // namespace pimloft
