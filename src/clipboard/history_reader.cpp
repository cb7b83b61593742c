// SPDX-License-Identifier: MIT
#include "clipboard/history_reader.h"

#include "clipboard/history_stream.h"

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <array>
#include <bitset>

namespace pimloft {

namespace {

/// How deeply values may be nested.
constexpr int deepest = 512;

enum Member { id, content, sourceApp, sourceAppBundleID, timestamp, isPinned, memberCount, unknown };

constexpr std::array<const char *, memberCount> memberNames{
    "id", "content", "sourceApp", "sourceAppBundleID", "timestamp", "isPinned"};

/// The names of the kinds, in the order of the variant's alternatives.
constexpr std::array<const char *, std::variant_size_v<ClipboardContent>> kindNames{
    "text", "richText", "image", "fileURL", "html"};

const QString invalidNumberOfKeys = QStringLiteral("Invalid number of keys found, expected one.");

template <typename Names>
std::size_t indexOf(const Names &names, const QString &name) {
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const char *each) { return name == QLatin1String(each); });
    return std::size_t(found - names.begin());
}

std::optional<QUuid> uuidFrom(const QString &text) {
    constexpr QStringView shape = u"00000000-0000-0000-0000-000000000000";
    const auto fits = [](QChar c, QChar place) {
        return place == u'-'
                   ? c == u'-'
                   : (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
    };
    if (text.size() != shape.size() || !std::equal(text.begin(), text.end(), shape.begin(), fits))
        return std::nullopt;
    return QUuid::fromString(text);
}

/// Turns what RapidJSON reads into entries. Answering false ends the reading; `error` then says why.
class ItemCollector : public rapidjson::BaseReaderHandler<> {
public:
    ItemCollector(HistoryStream &stream, HistoryText &text) : stream_(stream), text_(text) {}

    std::vector<ClipboardItem> items;
    QString error;

    bool Null() {
        if (level_ == Level::item && member_ == sourceAppBundleID) {
            item_.sourceAppBundleID.reset();
            return true;
        }
        return isIgnored() || mismatch("null");
    }
    bool Bool(bool value) {
        if (level_ != Level::item || member_ != isPinned)
            return isIgnored() || mismatch("a flag");
        item_.isPinned = value;
        return found(isPinned);
    }
    bool RawNumber(const char *, rapidjson::SizeType, bool) {
        if (level_ != Level::item || member_ != timestamp)
            return isIgnored() || mismatch("a number");
        bool fits = false;
        item_.timestamp.seconds = stream_.number().toDouble(&fits);
        return fits ? found(timestamp) : fail("The number is out of range.");
    }

    bool String(const char *, rapidjson::SizeType, bool) {
        if (!text_.finish())
            return fail("The text is not in the form that is expected of it.");
        if (isIgnored())
            return true;
        if (level_ == Level::payload)
            return takePayload();
        return level_ == Level::item ? takeText() : mismatch("a text");
    }

    bool StartObject() {
        if (isIgnored())
            return open();
        if (level_ == Level::items) {
            level_ = Level::item;
            item_ = {};
            seen_.reset();
        } else if (level_ == Level::item && member_ == content) {
            level_ = Level::content;
            kinds_ = 0;
        } else if (level_ == Level::content) {
            level_ = Level::payload;
            hasPayload_ = false;
        } else {
            return mismatch("an object");
        }
        return true;
    }
    bool Key(const char *, rapidjson::SizeType, bool) {
        if (!text_.finish())
            return fail("A name is not UTF-8.");
        if (depth_ > 0)
            return true;
        if (level_ == Level::item)
            takeMember();
        else if (level_ == Level::content)
            return takeKind();
        else
            takePayloadName();
        return true;
    }
    bool EndObject(rapidjson::SizeType) {
        if (depth_ > 0)
            return close();
        switch (level_) {
        case Level::payload:
            level_ = Level::content;
            return hasPayload_ || fail("The content is missing.");
        case Level::content:
            level_ = Level::item;
            return kinds_ == 1 ? found(content) : fail(invalidNumberOfKeys);
        default:
            level_ = Level::items;
            return takeItem();
        }
    }

    bool StartArray() {
        if (isIgnored())
            return open();
        if (level_ != Level::document)
            return mismatch("a list");
        level_ = Level::items;
        return true;
    }
    bool EndArray(rapidjson::SizeType) {
        if (depth_ > 0)
            return close();
        level_ = Level::document;
        return true;
    }

private:
    enum class Level { document, items, item, content, payload };

    /// Whether what comes belongs to a member that is not ours.
    bool isIgnored() const {
        return depth_ > 0 || (level_ == Level::item && member_ == unknown) ||
               (level_ == Level::payload && !isPayload_);
    }
    bool open() { return ++depth_ <= deepest || fail("It is nested too deeply."); }
    bool close() {
        --depth_;
        return true;
    }

    bool fail(const QString &reason) {
        error = reason;
        return false;
    }
    bool fail(const char *reason) { return fail(QString::fromLatin1(reason)); }
    bool mismatch(const char *found) {
        return fail(
            QStringLiteral("Expected something else but found %1 instead.").arg(QLatin1String(found)));
    }
    bool found(Member member) {
        seen_.set(member);
        return true;
    }

    void takeMember() {
        const std::size_t index = indexOf(memberNames, text_.string());
        member_ = index < memberCount ? Member(index) : unknown;
    }

    bool takeText() {
        const QString &text = text_.string();
        if (member_ == id) {
            const auto uuid = uuidFrom(text);
            if (!uuid)
                return fail("Attempted to decode UUID from invalid UUID string.");
            item_.id = *uuid;
        } else if (member_ == sourceApp) {
            item_.sourceApp = text;
        } else if (member_ == sourceAppBundleID) {
            item_.sourceAppBundleID = text;
        } else {
            return mismatch("a text");
        }
        return found(member_);
    }

    bool takeKind() {
        kind_ = indexOf(kindNames, text_.string());
        return (++kinds_ == 1 && kind_ < kindNames.size()) || fail(invalidNumberOfKeys);
    }

    void takePayloadName() {
        isPayload_ = text_.string() == QLatin1String("_0");
        if (isPayload_ && (kind_ == 1 || kind_ == 2))
            stream_.expect(HistoryText::base64);
    }

    bool takePayload() {
        hasPayload_ = true;
        switch (kind_) {
        case 0:
            item_.content = TextContent{text_.string()};
            return true;
        case 1:
            item_.content = RichTextContent{text_.takeBytes()};
            return true;
        case 2:
            item_.content = ImageContent{text_.takeBytes()};
            return true;
        case 3: {
            const QUrl url = QUrl::fromEncoded(text_.string().toUtf8(), QUrl::StrictMode);
            if (url.isEmpty() || !url.isValid())
                return fail("Invalid URL string.");
            item_.content = FileURLContent{url};
            return true;
        }
        default:
            item_.content = HtmlContent{text_.string()};
            return true;
        }
    }

    bool takeItem() {
        for (const Member member : {id, content, sourceApp, timestamp, isPinned})
            if (!seen_.test(member))
                return fail(QStringLiteral("No value is associated with the key \"%1\".")
                                .arg(QLatin1String(memberNames[member])));
        items.push_back(std::move(item_));
        return true;
    }

    HistoryStream &stream_;
    HistoryText &text_;
    Level level_ = Level::document;
    int depth_ = 0;  ///< within what is ignored
    Member member_ = unknown;
    std::size_t kind_ = 0;
    int kinds_ = 0;
    bool isPayload_ = false;
    bool hasPayload_ = false;
    ClipboardItem item_;
    std::bitset<memberCount> seen_;
};

}  // namespace

HistoryResult readHistory(const std::function<qint64(char *, qint64)> &source) {
    // In place: see HistoryStream. Of numbers the reader only finds the ends: its own conversion reads far
    // outside of its tables when there are many zeros or the exponent is absurd.
    constexpr auto flags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
    HistoryText text;
    HistoryStream stream(source, text);
    ItemCollector collector(stream, text);
    rapidjson::Reader reader;
    const bool isRead = bool(reader.Parse<flags>(stream, collector));
    if (stream.hasFailed())
        return QStringLiteral("The file could not be read to its end.");
    if (!collector.error.isEmpty())
        return collector.error;
    if (!isRead)
        return QString::fromLatin1(rapidjson::GetParseError_En(reader.GetParseErrorCode()));
    if (!stream.atEnd())
        return QStringLiteral("The document root must not be followed by other values.");
    return std::move(collector.items);
}

}  // namespace pimloft
