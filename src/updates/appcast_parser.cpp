// SPDX-License-Identifier: MIT
#include "updates/appcast_parser.h"

#include <QIODevice>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace pimloft {

namespace {

constexpr QLatin1String item("item");
constexpr QLatin1String enclosure("enclosure");
constexpr QLatin1String description("description");
constexpr QLatin1String shortVersion("sparkle:shortVersionString");
constexpr QLatin1String version("sparkle:version");

// No feed comes near these. They keep one that was made to do harm from taking the memory or the time.

/// Elements within each other.
constexpr int deepest = 256;
/// Attributes of one element, each of which is compared with all others.
constexpr int mostAttributes = 10000;
/// References in a document that has entities of its own, each of which may stand for some thousand
/// characters.
constexpr qsizetype mostReferences = 4096;

/// Whether some element may have more attributes than elements do. No tag contains a "<", so between two of
/// them lies one tag at the most.
bool hasEndlessTag(QByteArrayView data) {
    int attributes = 0;
    for (const char each : data) {
        if (each == '<')
            attributes = 0;
        else if (each == '=' && ++attributes > mostAttributes)
            return true;
    }
    return false;
}

/// Hands a document over item by item: the reader drops whatever came together with bytes that its encoding
/// does not know, and so would drop an item that was well before them.
class ItemByItem final : public QIODevice {
public:
    explicit ItemByItem(const QByteArray &document) : rest_(document) { open(ReadOnly | Unbuffered); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *to, qint64 room) override {
        constexpr QByteArrayView end("item>");
        const QByteArrayView ready = rest_.first(std::min(qsizetype(room), rest_.size()));
        const qsizetype found = ready.indexOf(end);
        const qsizetype size = found < 0 ? ready.size() : found + end.size();
        std::copy_n(rest_.data(), size, to);
        rest_ = rest_.sliced(size);
        return size;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArrayView rest_;
};

/// No URL when the text is none.
std::optional<QUrl> urlFrom(QStringView text) {
    QUrl url(text.toString(), QUrl::StrictMode);
    return url.isValid() ? std::optional(std::move(url)) : std::nullopt;
}

}  // namespace

AppcastParser::AppcastParser(QByteArray data) : data_(std::move(data)) {
}

std::optional<AppcastItem> AppcastParser::parse() {
    if (hasEndlessTag(data_))
        return std::nullopt;
    ItemByItem document(data_);
    QXmlStreamReader reader(&document);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    // Of all releases only the first is asked for, so nothing after it is read.
    while (items_.empty() && depth <= deepest) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            if (!reader.entityDeclarations().isEmpty() && data_.count('&') > mostReferences)
                return std::nullopt;
            break;
        case QXmlStreamReader::StartElement:
            ++depth;
            startElement(reader);
            break;
        case QXmlStreamReader::Characters:
            characters(reader.text());
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            endElement(reader.qualifiedName());
            break;
        case QXmlStreamReader::EndDocument:
        case QXmlStreamReader::Invalid:
            return std::nullopt;
        default:
            break;
        }
    }
    return items_.empty() ? std::nullopt : std::optional(items_.front());
}

void AppcastParser::startElement(const QXmlStreamReader &reader) {
    currentElement_ = reader.qualifiedName().toString();
    if (currentElement_ == item) {
        inItem_ = true;
        currentVersion_.clear();
        currentReleaseNotes_.clear();
        currentEnclosureURL_.reset();
    } else if (currentElement_ == enclosure) {
        startEnclosure(reader);
    }
}

void AppcastParser::startEnclosure(const QXmlStreamReader &reader) {
    const QXmlStreamAttributes attributes = reader.attributes();
    // What cannot be downloaded says nothing about the version either.
    if (!attributes.hasAttribute(QLatin1String("url")))
        return;
    currentEnclosureURL_ = urlFrom(attributes.value(QLatin1String("url")));
    for (const QLatin1String name : {shortVersion, version}) {
        if (!attributes.hasAttribute(name))
            continue;
        currentVersion_ = attributes.value(name).toString();
        return;
    }
}

void AppcastParser::characters(QStringView text) {
    if (!inItem_)
        return;
    if (currentElement_ == shortVersion || currentElement_ == version)
        currentVersion_ += text.trimmed();
    else if (currentElement_ == description)
        currentReleaseNotes_ += text;
}

void AppcastParser::endElement(QStringView name) {
    if (name == item)
        items_.push_back({currentVersion_, currentReleaseNotes_.trimmed(), currentEnclosureURL_});
}

}  // namespace pimloft
