// SPDX-License-Identifier: MIT
#include "platform/preferences/preferences_document.h"

#include <QLocale>
#include <QStringList>

#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>

#include <cmath>

namespace pimloft {

namespace {

/// Collects the members of the outermost object. What is nested is only measured, so that its text can be
/// kept: depth costs no stack.
class Collector : public rapidjson::BaseReaderHandler<> {
public:
    Collector(const char *bytes, const rapidjson::MemoryStream &stream) : bytes_(bytes), stream_(stream) {}

    PreferencesDocument document;

    bool Null() { return foreignValue("null"); }
    bool Bool(bool value) { return plain(value); }
    bool RawNumber(const char *text, rapidjson::SizeType length, bool) {
        return number(QByteArray(text, qsizetype(length)));
    }
    bool String(const char *text, rapidjson::SizeType length, bool) {
        const QString value = QString::fromUtf8(text, qsizetype(length));
        if (depth_ == 2 && onlyTexts_) {
            texts_.append(value);
            return true;
        }
        return depth_ > 1 || plain(value);
    }
    bool StartObject() {
        onlyTexts_ = false;
        return open();
    }
    bool Key(const char *text, rapidjson::SizeType length, bool) {
        if (depth_ == 1)
            key_ = QString::fromUtf8(text, qsizetype(length));
        return true;
    }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool StartArray() {
        if (depth_ == 0)
            return false;
        texts_.clear();
        onlyTexts_ = depth_ == 1;
        return open();
    }
    bool EndArray(rapidjson::SizeType) { return close(); }

private:
    bool open() {
        if (++depth_ == 2)
            start_ = stream_.Tell();
        return true;
    }

    bool close() {
        if (--depth_ != 1)
            return true;
        if (onlyTexts_)
            return plain(texts_);
        return foreignValue(QByteArray(bytes_ + start_, qsizetype(stream_.Tell() + 1 - start_)));
    }

    bool number(const QByteArray &text) {
        bool fits = false;
        const qint64 whole = text.toLongLong(&fits);
        if (fits)
            return plain(whole);
        // A whole number beyond 64 bits would come back as another one, and so would what no double can hold.
        const bool isWhole = text.indexOf('.') < 0 && text.indexOf('e') < 0 && text.indexOf('E') < 0;
        const double real = text.toDouble(&fits);
        return isWhole || !fits ? foreignValue(text) : plain(real);
    }

    bool plain(const QVariant &value) {
        if (depth_ != 1)
            return nested();
        document.foreign.remove(key_);
        document.values[key_] = value;
        return true;
    }

    bool foreignValue(const QByteArray &text) {
        if (depth_ != 1)
            return nested();
        document.values.remove(key_);
        document.foreign[key_] = text;
        return true;
    }

    /// Outside of the object nothing may stand.
    bool nested() {
        onlyTexts_ = false;
        return depth_ > 1;
    }

    const char *bytes_;
    const rapidjson::MemoryStream &stream_;
    QString key_;
    QStringList texts_;
    std::size_t start_ = 0;
    int depth_ = 0;
    bool onlyTexts_ = false;
};

QByteArray numberText(double value) {
    QByteArray text = QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
    if (text.indexOf('.') < 0 && text.indexOf('e') < 0)
        text += ".0";
    return text;
}

using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void writeText(Writer &writer, const QString &text) {
    const QByteArray bytes = text.toUtf8();
    writer.String(bytes.constData(), rapidjson::SizeType(bytes.size()));
}

bool isStorable(const QVariant &value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::QString:
    case QMetaType::QStringList:
        return true;
    case QMetaType::Double:
        return std::isfinite(value.toDouble());
    default:
        return false;
    }
}

void writeValue(Writer &writer, const QVariant &value) {
    if (value.typeId() == QMetaType::Bool) {
        writer.Bool(value.toBool());
    } else if (value.typeId() == QMetaType::QString) {
        writeText(writer, value.toString());
    } else if (value.typeId() == QMetaType::Double) {
        const QByteArray text = numberText(value.toDouble());
        writer.RawValue(text.constData(), std::size_t(text.size()), rapidjson::kNumberType);
    } else if (value.typeId() == QMetaType::QStringList) {
        writer.StartArray();
        for (const QString &text : value.toStringList())
            writeText(writer, text);
        writer.EndArray();
    } else {
        writer.Int64(value.toLongLong());
    }
}

}  // namespace

std::optional<PreferencesDocument> parsePreferences(const QByteArray &bytes) {
    constexpr auto flags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag |
                           rapidjson::kParseNumbersAsStringsFlag;
    rapidjson::MemoryStream stream(bytes.constData(), std::size_t(bytes.size()));
    Collector collector(bytes.constData(), stream);
    rapidjson::Reader reader;
    if (!reader.Parse<flags>(stream, collector))
        return std::nullopt;
    return collector.document;
}

QByteArray encodePreferences(const PreferencesDocument &document) {
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    writer.SetIndent(' ', 2);
    writer.StartObject();
    for (auto entry = document.values.begin(); entry != document.values.end(); ++entry) {
        if (!isStorable(entry.value()))
            continue;
        writeText(writer, entry.key());
        writeValue(writer, entry.value());
    }
    for (auto entry = document.foreign.begin(); entry != document.foreign.end(); ++entry) {
        writeText(writer, entry.key());
        writer.RawValue(entry->constData(), std::size_t(entry->size()), rapidjson::kObjectType);
    }
    writer.EndObject();
    return QByteArray(buffer.GetString(), qsizetype(buffer.GetSize())) + '\n';
}

}  // namespace pimloft
