// SPDX-License-Identifier: MIT
#include "clipboard/clipboard_engine.h"

#include "app/process.h"
#include "app/settings_manager.h"
#include "base/clock.h"
#include "clipboard/clipboard_preferences.h"
#include "clipboard/clipboard_store.h"
#include "clipboard/utf8_text.h"
#include "platform/events/key_poster.h"
#include "platform/pasteboard/pasteboard.h"
#include "platform/workspace/workspace.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace pimloft {

namespace {

constexpr std::chrono::milliseconds pollingInterval{500};

/// Password managers, by the beginning of their identifiers.
constexpr std::array keptOut{
    QLatin1String("com.1password"),
    QLatin1String("com.agilebits.onepassword"),
    QLatin1String("com.bitwarden.desktop"),
    QLatin1String("com.lastpass.LastPass"),
};

bool isKeptOut(const std::optional<QString> &bundleId) {
    return bundleId && std::any_of(keptOut.begin(), keptOut.end(),
                                   [&](QLatin1String prefix) { return bundleId->startsWith(prefix); });
}

std::optional<QUrl> firstFile(const QByteArray &lines) {
    for (const QByteArray &line : lines.split('\n')) {
        const QUrl url = QUrl::fromEncoded(line.trimmed(), QUrl::StrictMode);
        if (url.isLocalFile() && !url.path().isEmpty())
            return url;
    }
    return std::nullopt;
}

/// Upper and lower case are the same, both by Unicode's rules and by those of the user's language.
bool contains(const QString &name, const QString &part) {
    const QLocale locale;
    return name.contains(part, Qt::CaseInsensitive) || locale.toLower(name).contains(locale.toLower(part));
}

struct Form {
    PasteItem operator()(const TextContent &content) const {
        return {PasteType::plainText, content.string.toUtf8()};
    }
    PasteItem operator()(const RichTextContent &content) const { return {PasteType::rtf, content.bytes}; }
    // As PNG also where it was copied as TIFF.
    PasteItem operator()(const ImageContent &content) const { return {PasteType::png, content.bytes}; }
    PasteItem operator()(const FileURLContent &content) const {
        return {PasteType::fileUrls, content.url.toEncoded()};
    }
    PasteItem operator()(const HtmlContent &content) const {
        return {PasteType::html, content.string.toUtf8()};
    }
};

}  // namespace

ClipboardEngine &ClipboardEngine::shared() {
    return Process::current().shared<ClipboardEngine>([](Process &process) {
        const Platform &platform = process.platform();
        return std::make_unique<ClipboardEngine>(platform.pasteboard, platform.workspace, platform.keys,
                                                 ClipboardStore::shared(),
                                                 SettingsManager::shared().defaults(), process.clock());
    });
}

ClipboardEngine::ClipboardEngine(PasteboardService &pasteboard, WorkspaceService &workspace, KeyPoster &keys,
                                 ClipboardStore &store, PreferencesService &defaults, const Clock &clock)
    : pasteboard_(pasteboard), workspace_(workspace), keys_(keys), store_(store), defaults_(defaults),
      clock_(clock) {
    pollingTimer_.setInterval(pollingInterval);
    connect(&pollingTimer_, &QTimer::timeout, this, &ClipboardEngine::checkForChanges);
}

void ClipboardEngine::start() {
    if (std::exchange(isActive_, true))
        return;
    lastChangeCount_ = pasteboard_.changeCount();
    pollingTimer_.start();
}

void ClipboardEngine::stop() {
    isActive_ = false;
    pollingTimer_.stop();
    giveUp();
}

void ClipboardEngine::checkForChanges() {
    const qint64 count = pasteboard_.changeCount();
    if (count == lastChangeCount_)
        return;
    skipChange(count);
    const Application front = workspace_.frontmostApplication().value_or(Application{});
    const QString name = front.name.isEmpty() ? QStringLiteral("Unknown") : front.name;
    if (pimloft::isKeptOut(front.bundleId) || isExcludedApp(name))
        return;
    captureContent({count, name, front.bundleId, ReferenceTime::from(clock_.wallTime())});
}

void ClipboardEngine::skipChange(qint64 count) {
    giveUp();
    lastChangeCount_ = count;
}

bool ClipboardEngine::isKeptOut(const PasteOrigin &origin) {
    return origin.isSecret || pimloft::isKeptOut(origin.bundleId);
}

bool ClipboardEngine::isExcludedApp(const QString &name) const {
    const QStringList excluded = excludedApps(defaults_);
    return std::any_of(excluded.begin(), excluded.end(),
                       [&](const QString &part) { return !part.isEmpty() && contains(name, part); });
}

void ClipboardEngine::captureContent(Capture capture) {
    capture_ = std::move(capture);
    const qint64 change = capture_->change;
    pasteboard_.origin(change, this, [this, change](const std::optional<PasteOrigin> &origin) {
        if (!capture_ || capture_->change != change)
            return;
        if (!origin || isKeptOut(*origin))
            return giveUp();
        readNext({PasteType::fileUrls}, largestOther, &ClipboardEngine::takeFileUrls);
    });
}

void ClipboardEngine::readNext(std::vector<PasteType> wanted, qsizetype cap, Then then) {
    const qint64 change = capture_->change;
    pasteboard_.read(change, std::move(wanted), cap, this, [this, change, then](const PasteData &data) {
        if (!capture_ || capture_->change != change)
            return;
        if (data.status == PasteData::present || data.status == PasteData::absent)
            (this->*then)(data);
        else
            giveUp();
    });
}

void ClipboardEngine::takeFileUrls(const PasteData &data) {
    if (const auto file = firstFile(data.bytes))
        return finish(FileURLContent{*file});
    readNext({PasteType::png, PasteType::tiff}, largestImage, &ClipboardEngine::takeImage);
}

void ClipboardEngine::takeImage(const PasteData &data) {
    if (data.status == PasteData::present)
        return finish(ImageContent{data.bytes});
    readNext({PasteType::html}, largestOther, &ClipboardEngine::takeHtml);
}

void ClipboardEngine::takeHtml(const PasteData &data) {
    if (data.status == PasteData::present)
        if (const auto html = textFromUtf8(data.bytes))
            return finish(HtmlContent{*html});
    readNext({PasteType::rtf}, largestOther, &ClipboardEngine::takeRichText);
}

void ClipboardEngine::takeRichText(const PasteData &data) {
    if (data.status == PasteData::absent)
        return readNext({PasteType::plainText}, largestOther, &ClipboardEngine::takeText);
    richText_ = data.bytes;
    readNext({PasteType::plainText}, largestOther, &ClipboardEngine::takeRichTextAsText);
}

void ClipboardEngine::takeRichTextAsText(const PasteData &data) {
    const auto text = textFromUtf8(data.bytes);
    if (text && !text->isEmpty())
        finish(TextContent{*text});
    else
        finish(RichTextContent{richText_});
}

void ClipboardEngine::takeText(const PasteData &data) {
    const auto text = textFromUtf8(data.bytes);
    if (text && !text->isEmpty())
        finish(TextContent{*text});
    else
        giveUp();
}

void ClipboardEngine::finish(const ClipboardContent &content) {
    const ClipboardItem item{QUuid::createUuid(),      content,        capture_->sourceApp,
                             capture_->sourceBundleID, capture_->seen, false};
    giveUp();
    QMetaObject::invokeMethod(
        this, [this, item] { store_.add(item); }, Qt::QueuedConnection);
}

void ClipboardEngine::giveUp() {
    capture_.reset();
    richText_.clear();
}

void ClipboardEngine::writeToPasteboard(const ClipboardItem &item) {
    skipChange(pasteboard_.write({std::visit(Form{}, item.content)}));
}

void ClipboardEngine::simulatePaste() {
    keys_.post(Key::v, KeyFlags::command);
}

}  // namespace pimloft
