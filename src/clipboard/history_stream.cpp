// SPDX-License-Identifier: MIT
#include "clipboard/history_stream.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace pimloft {

namespace {

constexpr qint64 pieceSize = 256 * 1024;
constexpr qsizetype stageSize = 64 * 1024;

const char *find(const char *begin, const char *end, char c) {
    const void *found = std::memchr(begin, c, std::size_t(end - begin));
    return found ? static_cast<const char *>(found) : end;
}

const char *findControl(const char *begin, const char *end) {
    // At first without an early end, so that the compiler can look at many at once.
    std::uint8_t found = 0;
    for (const char *each = begin; each != end; ++each)
        found |= std::uint8_t(std::uint8_t(*each) < 0x20);
    return found ? std::find_if(begin, end, [](char c) { return std::uint8_t(c) < 0x20; }) : end;
}

bool isOfANumber(char c) {
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
}

}  // namespace

void HistoryText::begin(Kind kind) {
    kind_ = kind;
    decoder_.resetState();
    string_ = QString();
    bytes_.take();
}

void HistoryText::append(QByteArrayView piece) {
    if (kind_ == base64)
        bytes_.append(piece);
    else
        string_ += QString(decoder_.decode(piece));
}

qsizetype HistoryText::appendWritten(QByteArrayView written) {
    return kind_ == base64 ? bytes_.appendWritten(written) : 0;
}

bool HistoryText::finish() {
    if (kind_ == base64)
        return bytes_.finish();
    // A part of a character that is left over counts as an error only when something follows it.
    const QString rest = decoder_.decode(QByteArrayView("\n"));
    string_.squeeze();
    return !decoder_.hasError();
}

HistoryStream::HistoryStream(Source source, HistoryText &text)
    : source_(std::move(source)), buffer_(std::make_unique_for_overwrite<char[]>(pieceSize)),
      next_(buffer_.get()), end_(next_), text_(text),
      staged_(std::make_unique_for_overwrite<char[]>(stageSize)) {
}

bool HistoryStream::fill() {
    if (next_ != end_)
        return true;
    if (isOver_)
        return false;
    before_ += end_ - buffer_.get();
    const qint64 size = source_(buffer_.get(), pieceSize);
    hasFailed_ = size < 0;
    isOver_ = size <= 0;
    next_ = buffer_.get();
    end_ = next_ + std::max<qint64>(size, 0);
    mark_ = nullptr;
    limit_ = nullptr;
    return !isOver_;
}

bool HistoryStream::atEnd() {
    return !fill();
}

HistoryStream::Ch HistoryStream::Peek() {
    // The letter behind a backslash is the reader's, and so are the digits behind a "u".
    if (isInString_ && !isInEscape_)
        moveRun();
    return fill() ? *next_ : '\0';
}

HistoryStream::Ch HistoryStream::Take() {
    if (!fill())
        return '\0';
    if (isInString_)
        isInEscape_ = isInEscape_ || *next_ == '\\';
    else if (isOfANumber(*next_))
        number_ += *next_;
    else
        number_.clear();
    return *next_++;
}

void HistoryStream::moveRun() {
    while (fill()) {
        if (stagedSize_ == 0)
            next_ += text_.appendWritten({next_, quotationMark()});
        const char *const end = endOfRun();
        stage({next_, end});
        next_ = end;
        if (end == end_)
            continue;
        // By far the most frequent escape is that of a slash.
        if (end + 1 >= end_ || end[0] != '\\' || end[1] != '/')
            return;
        ++next_;
    }
}

/// Where the next quotation mark, backslash or control character is.
const char *HistoryStream::endOfRun() {
    if (!limit_ || limit_ < next_)
        limit_ = findControl(next_, quotationMark());
    return find(next_, limit_, '\\');
}

const char *HistoryStream::quotationMark() {
    if (!mark_ || mark_ < next_)
        mark_ = find(next_, end_, '"');
    return mark_;
}

HistoryStream::Ch *HistoryStream::PutBegin() {
    // The reader asks for the place of a number, too, once it has passed it.
    if (!number_.isEmpty())
        return nullptr;
    text_.begin(kind_);
    kind_ = HistoryText::text;
    isInString_ = true;
    isInEscape_ = false;
    stagedSize_ = 0;
    return staged_.get();
}

void HistoryStream::Put(Ch c) {
    isInEscape_ = false;
    stage({&c, 1});
}

std::size_t HistoryStream::PutEnd(Ch *) {
    --stagedSize_;  // the reader ends every string with a zero
    deliver();
    isInString_ = false;
    return 1;
}

void HistoryStream::stage(QByteArrayView piece) {
    while (!piece.isEmpty()) {
        if (stagedSize_ == stageSize)
            deliver();
        const qsizetype part = std::min(piece.size(), stageSize - stagedSize_);
        std::copy_n(piece.data(), part, staged_.get() + stagedSize_);
        stagedSize_ += part;
        piece = piece.sliced(part);
    }
}

void HistoryStream::deliver() {
    text_.append({staged_.get(), stagedSize_});
    stagedSize_ = 0;
}

}  // namespace pimloft
