// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/base64.h"

#include <QStringDecoder>

#include <functional>
#include <memory>

namespace pimloft {

/// What a string of the history file is put together to. Any thread.
class HistoryText {
public:
    enum Kind {
        text,    ///< UTF-8
        base64,  ///< kept as the bytes that it stands for
    };

    /// Begins a string, and forgets the last one.
    void begin(Kind kind);
    void append(QByteArrayView piece);
    /// Of a string as it is written: takes what needs no look at its escapes, and answers how much that was.
    qsizetype appendWritten(QByteArrayView written);
    /// False when it was not what its kind demands.
    bool finish();

    /// What became of the string that was finished last.
    const QString &string() const { return string_; }
    QByteArray takeBytes() { return bytes_.take(); }

private:
    Kind kind_ = text;
    /// A mark at the beginning is content like everything else.
    QStringDecoder decoder_{QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom};
    QString string_;
    Base64Decoder bytes_;
};

/// A history file on its way through RapidJSON's reader, a piece at a time. Any thread.
///
/// To the reader it is a stream that is parsed in place: what the reader puts is a string without its
/// escapes, and goes to `text`. Long runs without escapes, but for that of a slash, do not pass the reader at
/// all: `Peek` moves them to the text at once and shows the reader only what ends them. Pictures are decoded
/// on the spot. Numbers are kept as they are written: see `number`.
class HistoryStream {
public:
    using Ch = char;
    /// Fills a piece and answers its size, zero at the end, negative when reading fails.
    using Source = std::function<qint64(char *, qint64)>;

    HistoryStream(Source source, HistoryText &text);

    /// What the next string is to become. Holds for one string.
    void expect(HistoryText::Kind kind) { kind_ = kind; }

    /// The number that was read last, as it is written.
    const QByteArray &number() const { return number_; }

    bool hasFailed() const { return hasFailed_; }
    /// Whether everything has been read; the reader takes a zero for the end.
    bool atEnd();

    Ch Peek();
    Ch Take();
    std::size_t Tell() const { return std::size_t(before_ + (next_ - buffer_.get())); }
    Ch *PutBegin();
    void Put(Ch c);
    std::size_t PutEnd(Ch *);
    void Flush() {}

private:
    bool fill();
    void moveRun();
    const char *endOfRun();
    const char *quotationMark();
    void stage(QByteArrayView piece);
    void deliver();

    Source source_;
    std::unique_ptr<char[]> buffer_;
    const char *next_;
    const char *end_;
    const char *mark_ = nullptr;   ///< the next quotation mark, where it is known
    const char *limit_ = nullptr;  ///< that or a control character before it, where it is known
    qint64 before_ = 0;            ///< how much of the file came before the buffer
    bool hasFailed_ = false;
    bool isOver_ = false;

    HistoryText &text_;
    HistoryText::Kind kind_ = HistoryText::text;
    std::unique_ptr<char[]> staged_;  ///< of the string, gathered for `text_`
    qsizetype stagedSize_ = 0;
    bool isInString_ = false;
    bool isInEscape_ = false;
    QByteArray number_;
};

}  // namespace pimloft
