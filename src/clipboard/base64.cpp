// SPDX-License-Identifier: MIT
#include "clipboard/base64.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace pimloft {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// What twelve bits become: two characters, each "/" escaped.
struct Pair {
    std::array<char, 4> text{};
    std::uint8_t size = 0;

    constexpr void add(char c) {
        if (c == '/')
            text[size++] = '\\';
        text[size++] = c;
    }
};

constexpr auto pairs = [] {
    std::array<Pair, 4096> table{};
    for (std::size_t bits = 0; bits < table.size(); ++bits) {
        table[bits].add(alphabet[bits >> 6]);
        table[bits].add(alphabet[bits & 63]);
    }
    return table;
}();

constexpr std::uint32_t notBase64 = 0xFF000000;

/// The value of a character at each of the four positions of a group.
constexpr auto values = [] {
    std::array<std::array<std::uint32_t, 256>, 4> table{};
    for (auto &position : table)
        position.fill(notBase64);
    for (std::uint32_t value = 0; value < alphabet.size(); ++value)
        for (std::size_t position = 0; position < 4; ++position)
            table[position][std::uint8_t(alphabet[value])] = value << (18 - 6 * position);
    return table;
}();

char *put(std::uint32_t twelveBits, char *out) {
    const Pair &pair = pairs[twelveBits];
    std::memcpy(out, pair.text.data(), pair.text.size());
    return out + pair.size;
}

std::uint8_t byte(char c) {
    return std::uint8_t(c);
}

/// The three bytes of four characters, or some bits of `notBase64`.
std::uint32_t groupOf(const char *in) {
    return values[0][byte(in[0])] | values[1][byte(in[1])] | values[2][byte(in[2])] | values[3][byte(in[3])];
}

/// The same of four characters each of which may be written "\/", and where they end. Needs eight to look at.
std::pair<std::uint32_t, const char *> escapedGroup(const char *in) {
    std::array<char, 4> plain{};
    bool isSlash = true;
    // Without a branch, which nobody could predict.
    for (char &c : plain) {
        const bool isEscape = *in == '\\';
        in += isEscape;
        isSlash = isSlash && (!isEscape | (*in == '/'));
        c = *in++;
    }
    return {groupOf(plain.data()) | (isSlash ? 0 : notBase64), in};
}

/// Writes one byte more than the three that it puts.
char *putGroup(std::uint32_t group, char *out) {
    qToBigEndian(group << 8, out);
    return out + 3;
}

/// How many characters of a JSON string stand for the next one of Base64; none when that is something else.
int lengthOfNext(const char *in, const char *end) {
    if (*in == '\\')
        return end - in >= 2 && in[1] == '/' ? 2 : 0;
    return values[0][byte(*in)] == notBase64 ? 0 : 1;
}

}  // namespace

char *encodeBase64(QByteArrayView bytes, char *out) {
    const char *in = bytes.data();
    const char *const end = in + bytes.size();
    for (; end - in >= 3; in += 3) {
        const std::uint32_t group = byte(in[0]) << 16 | byte(in[1]) << 8 | byte(in[2]);
        out = put(group >> 12, out);
        out = put(group & 4095, out);
    }
    if (in == end)
        return out;
    const bool two = end - in == 2;
    const std::uint32_t group = byte(in[0]) << 16 | (two ? byte(in[1]) << 8 : 0);
    out = put(group >> 12, out);
    if (two)
        out = std::copy_n(pairs[group & 4095].text.data(), pairs[group & 4095].size - 1, out);
    else
        *out++ = '=';
    *out++ = '=';
    return out;
}

void Base64Decoder::append(QByteArrayView text) {
    if (restSize_ > 0) {
        const auto missing = std::min<qsizetype>(4 - restSize_, text.size());
        std::copy_n(text.data(), missing, rest_.data() + restSize_);
        restSize_ += int(missing);
        text = text.sliced(missing);
        if (restSize_ < 4)
            return;
        restSize_ = 0;
        appendGroups(rest_);
    }
    const qsizetype whole = text.size() / 4 * 4;
    appendGroups(text.first(whole));
    text = text.sliced(whole);
    std::copy_n(text.data(), text.size(), rest_.data());
    restSize_ = int(text.size());
}

void Base64Decoder::appendGroups(QByteArrayView text) {
    if (text.isEmpty() || isBroken_)
        return;
    isBroken_ = isPadded_;
    // The last group may be padded: it is decoded as if by zeros, which are then cut off.
    std::array<char, 4> last{};
    std::copy_n(text.end() - 4, 4, last.data());
    int padding = 0;
    for (; padding < 2 && last[std::size_t(3 - padding)] == '='; ++padding)
        last[std::size_t(3 - padding)] = 'A';
    isPadded_ = padding > 0;

    const qsizetype decodedSize = text.size() / 4 * 3;
    char *out = grow(decodedSize);
    std::uint32_t seen = 0;
    for (const char *in = text.data(); in != text.end() - 4; in += 4) {
        const std::uint32_t group = groupOf(in);
        seen |= group;
        out = putGroup(group, out);
    }
    const std::uint32_t group = groupOf(last.data());
    seen |= group;
    putGroup(group, out);
    isBroken_ = isBroken_ || (seen & notBase64) != 0;
    size_ += decodedSize - padding;
}

qsizetype Base64Decoder::appendWritten(QByteArrayView written) {
    if (isBroken_ || isPadded_)
        return 0;
    char *out = grow((restSize_ + written.size()) / 4 * 3);
    const char *in = written.data();
    const char *const end = in + written.size();
    while (in != end) {
        const bool isAligned = restSize_ == 0;
        while (isAligned && end - in >= 8) {
            const std::uint32_t group = groupOf(in);
            if (!(group & notBase64)) {
                out = putGroup(group, out);
                in += 4;
                continue;
            }
            const auto [escaped, next] = escapedGroup(in);
            if (escaped & notBase64)
                break;
            out = putGroup(escaped, out);
            in = next;
        }
        // What ends it is somewhere in this group, or the group is not all here.
        const int length = in == end ? 0 : lengthOfNext(in, end);
        if (length == 0)
            break;
        in += length;
        rest_[std::size_t(restSize_++)] = in[-1];
        if (restSize_ == 4) {
            restSize_ = 0;
            out = putGroup(groupOf(rest_.data()), out);
        }
    }
    size_ = out - bytes_.constData();
    return in - written.data();
}

/// Room for so many more bytes, and for the one that `putGroup` writes behind them; where they go.
char *Base64Decoder::grow(qsizetype size) {
    const qsizetype needed = size_ + size + 1;
    // Far more than needed: what is not used is never there, while each growth may copy everything.
    if (needed > bytes_.size())
        bytes_.resize(std::max(needed, bytes_.size() * 4));
    return bytes_.data() + size_;
}

bool Base64Decoder::finish() {
    if (isBroken_ || restSize_ > 0)
        return false;
    bytes_.resize(size_);
    bytes_.squeeze();
    return true;
}

QByteArray Base64Decoder::take() {
    QByteArray bytes;
    std::swap(bytes, bytes_);
    *this = {};
    return bytes;
}

}  // namespace pimloft
