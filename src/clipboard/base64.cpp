// SPDX-License-Identifier: MIT
#include "clipboard/base64.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

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

    const qsizetype needed = size_ + text.size() / 4 * 3;
    // Far more than needed: what is not used is never there, while each growth may copy everything.
    if (needed > bytes_.size())
        bytes_.resize(std::max(needed, bytes_.size() * 4));
    char *out = bytes_.data() + size_;
    std::uint32_t seen = 0;
    const auto decode = [&](const char *in) {
        const std::uint32_t group =
            values[0][byte(in[0])] | values[1][byte(in[1])] | values[2][byte(in[2])] | values[3][byte(in[3])];
        seen |= group;
        *out++ = char(group >> 16);
        *out++ = char(group >> 8);
        *out++ = char(group);
    };
    for (const char *in = text.data(); in != text.end() - 4; in += 4)
        decode(in);
    decode(last.data());
    isBroken_ = isBroken_ || (seen & notBase64) != 0;
    size_ = needed - padding;
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
