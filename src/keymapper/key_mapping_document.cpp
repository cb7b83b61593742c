// SPDX-License-Identifier: MIT
#include "keymapper/key_mapping_document.h"

#include <rapidjson/document.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cmath>
#include <limits>

namespace pimloft {

namespace {

using rapidjson::Value;
using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void write(Writer &writer, const QString &text) {
    const QByteArray bytes = text.toUtf8();
    writer.String(bytes.constData(), rapidjson::SizeType(bytes.size()));
}

void write(Writer &writer, const KeyMapping &mapping) {
    writer.StartObject();
    writer.Key("id");
    write(writer, mapping.id.toString(QUuid::WithoutBraces).toUpper());
    writer.Key("fromKeyCode");
    writer.Uint(std::uint16_t(mapping.fromKeyCode));
    writer.Key("fromModifiersRaw");
    writer.Uint64(std::uint64_t(mapping.fromModifiers));
    writer.Key("toKeyCode");
    writer.Uint(std::uint16_t(mapping.toKeyCode));
    writer.Key("toModifiersRaw");
    writer.Uint64(std::uint64_t(mapping.toModifiers));
    writer.Key("excludedApps");
    writer.StartArray();
    for (const QString &app : mapping.excludedApps)
        write(writer, app);
    writer.EndArray();
    writer.EndObject();
}

void write(Writer &writer, const KeyMappings &mappings) {
    writer.StartArray();
    for (const KeyMapping &mapping : mappings)
        write(writer, mapping);
    writer.EndArray();
}

QByteArray bytesOf(const rapidjson::StringBuffer &buffer) {
    return {buffer.GetString(), qsizetype(buffer.GetSize())};
}

/// The member of that name, the last one where it stands twice; null when there is none.
const Value *member(const Value &object, const char *name) {
    const Value *found = nullptr;
    for (const auto &each : object.GetObject())
        if (each.name == name)
            found = &each.value;
    return found;
}

QString textOf(const Value &string) {
    return QString::fromUtf8(string.GetString(), qsizetype(string.GetStringLength()));
}

template <typename Unsigned>
std::optional<Unsigned> readNumber(const Value *value) {
    constexpr Unsigned largest = std::numeric_limits<Unsigned>::max();
    if (!value)
        return std::nullopt;
    if (value->IsUint64())
        return value->GetUint64() <= largest ? std::optional(Unsigned(value->GetUint64())) : std::nullopt;
    if (!value->IsDouble())
        return std::nullopt;
    const double number = value->GetDouble();
    // The first number beyond the type is a power of two, which a double holds exactly.
    const double beyond = std::ldexp(1.0, std::numeric_limits<Unsigned>::digits);
    const bool fits = number >= 0 && number < beyond && number == std::floor(number);
    return fits ? std::optional(Unsigned(number)) : std::nullopt;
}

std::optional<QUuid> readId(const Value *value) {
    if (!value || !value->IsString())
        return std::nullopt;
    // QUuid also takes braces and text behind the closing one.
    const QString text = textOf(*value);
    const QUuid id = QUuid::fromString(text);
    const bool isStandardForm = id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) == 0;
    return isStandardForm ? std::optional(id) : std::nullopt;
}

std::optional<QStringList> readTexts(const Value *value) {
    if (!value || !value->IsArray())
        return std::nullopt;
    QStringList texts;
    for (const Value &each : value->GetArray()) {
        if (!each.IsString())
            return std::nullopt;
        texts << textOf(each);
    }
    return texts;
}

std::optional<KeyMapping> readMapping(const Value &value) {
    if (!value.IsObject())
        return std::nullopt;
    const auto id = readId(member(value, "id"));
    const auto fromKeyCode = readNumber<std::uint16_t>(member(value, "fromKeyCode"));
    const auto fromModifiers = readNumber<std::uint64_t>(member(value, "fromModifiersRaw"));
    const auto toKeyCode = readNumber<std::uint16_t>(member(value, "toKeyCode"));
    const auto toModifiers = readNumber<std::uint64_t>(member(value, "toModifiersRaw"));
    const auto excludedApps = readTexts(member(value, "excludedApps"));
    if (!id || !fromKeyCode || !fromModifiers || !toKeyCode || !toModifiers || !excludedApps)
        return std::nullopt;
    return KeyMapping{*id,
                      KeyCode(*fromKeyCode),
                      KeyFlags(*fromModifiers),
                      KeyCode(*toKeyCode),
                      KeyFlags(*toModifiers),
                      *excludedApps};
}

std::optional<KeyMappings> readMappings(const Value *value) {
    if (!value || !value->IsArray())
        return std::nullopt;
    KeyMappings mappings;
    mappings.reserve(value->Size());
    for (const Value &each : value->GetArray()) {
        const auto mapping = readMapping(each);
        if (!mapping)
            return std::nullopt;
        mappings.push_back(*mapping);
    }
    return mappings;
}

/// Hands what RapidJSON reads to a document, but for the numbers, which are converted here: RapidJSON's own
/// conversion reads far outside of its tables when there are many zeros or the exponent is absurd.
class DocumentBuilder : public rapidjson::BaseReaderHandler<> {
public:
    explicit DocumentBuilder(rapidjson::Document &document) : document_(document) {}

    bool RawNumber(const char *text, rapidjson::SizeType length, bool) {
        const QByteArray number(text, qsizetype(length));
        bool fits = false;
        const qulonglong whole = number.toULongLong(&fits);
        if (fits)
            return document_.Uint64(whole);
        const double real = number.toDouble(&fits);
        return document_.Double(fits ? real : std::numeric_limits<double>::quiet_NaN());
    }
    bool Null() { return document_.Null(); }
    bool Bool(bool value) { return document_.Bool(value); }
    bool String(const char *text, rapidjson::SizeType length, bool copy) {
        return document_.String(text, length, copy);
    }
    bool StartObject() { return document_.StartObject(); }
    bool Key(const char *text, rapidjson::SizeType length, bool copy) {
        return document_.Key(text, length, copy);
    }
    bool EndObject(rapidjson::SizeType count) { return document_.EndObject(count); }
    bool StartArray() { return document_.StartArray(); }
    bool EndArray(rapidjson::SizeType count) { return document_.EndArray(count); }

private:
    rapidjson::Document &document_;
};

/// False when the bytes are too many or no JSON. Nesting costs no stack: members that nobody asks for may be
/// anything.
bool parse(rapidjson::Document &document, const QByteArray &bytes, qsizetype limit) {
    constexpr auto flags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag |
                           rapidjson::kParseNumbersAsStringsFlag;
    if (bytes.size() > limit)
        return false;
    // Some editors of other systems begin a file with this mark.
    const QByteArray mark("\xEF\xBB\xBF");
    const qsizetype start = bytes.startsWith(mark) ? mark.size() : 0;
    rapidjson::MemoryStream stream(bytes.constData() + start, std::size_t(bytes.size() - start));
    rapidjson::Reader reader;
    bool isRead = false;
    auto read = [&](rapidjson::Document &target) {
        DocumentBuilder builder(target);
        isRead = bool(reader.Parse<flags>(stream, builder));
        return isRead;
    };
    document.Populate(read);
    return isRead;
}

}  // namespace

QByteArray encode(const KeyMappings &mappings) {
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    write(writer, mappings);
    return bytesOf(buffer);
}

QByteArray encode(const ExportedMappings &exported) {
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    writer.StartObject();
    writer.Key("presetStates");
    writer.StartObject();
    for (const auto &[name, isOn] : exported.presetStates) {
        write(writer, name);
        writer.Bool(isOn);
    }
    writer.EndObject();
    writer.Key("customMappings");
    write(writer, exported.customMappings);
    writer.EndObject();
    return bytesOf(buffer);
}

std::optional<KeyMappings> decodeMappings(const QByteArray &bytes) {
    rapidjson::Document document;
    return parse(document, bytes, longestMappingsFile) ? readMappings(&document) : std::nullopt;
}

std::optional<ExportedMappings> decodeExportedMappings(const QByteArray &bytes) {
    rapidjson::Document document;
    if (!parse(document, bytes, longestExportedMappings) || !document.IsObject())
        return std::nullopt;
    const Value *states = member(document, "presetStates");
    auto mappings = readMappings(member(document, "customMappings"));
    if (!states || !states->IsObject() || !mappings)
        return std::nullopt;
    ExportedMappings exported{{}, std::move(*mappings)};
    for (const auto &each : states->GetObject()) {
        if (!each.value.IsBool())
            return std::nullopt;
        exported.presetStates.emplace_back(textOf(each.name), each.value.GetBool());
    }
    return exported;
}

}  // namespace pimloft
