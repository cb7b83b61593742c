// SPDX-License-Identifier: MIT
#pragma once

#include "clipboard/clipboard_item.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

namespace pimloft {

class Clock;
class ClipboardStore;
class KeyPoster;
class PasteboardService;
class PreferencesService;
class WorkspaceService;
enum class PasteType;
struct PasteData;
struct PasteOrigin;

/// Records what is copied anywhere, and puts entries of the history back. Main thread.
///
/// It looks at the pasteboard twice a second. What it reads comes later, since another program has to hand it
/// over: one copy at a time, given up when something newer is copied.
class ClipboardEngine : public QObject {
    Q_OBJECT

public:
    /// Pictures of 50 MB and more are skipped.
    static constexpr qsizetype largestImage = 49'999'999;
    /// Nothing else that a user copies on purpose comes near it; it only bounds what a broken program can do.
    static constexpr qsizetype largestOther = 500'000'000;

    static ClipboardEngine &shared();
    ClipboardEngine(PasteboardService &pasteboard, WorkspaceService &workspace, KeyPoster &keys,
                    ClipboardStore &store, PreferencesService &defaults, const Clock &clock);

    /// Begins to look; does nothing when it does so already. What is on the pasteboard now is not recorded.
    void start();
    /// Ends it, and gives up a copy that is still being read.
    void stop();
    bool isActive() const { return isActive_; }

    /// One look: records what has been copied since the last one.
    void checkForChanges();

    /// Puts an entry's content on the pasteboard. It is not recorded again.
    void writeToPasteboard(const ClipboardItem &item);
    /// Types Command-V into the program in front.
    void simulatePaste();

    /// Whether the user does not want copies from an application of this name, or part of it, to be recorded.
    bool isExcludedApp(const QString &name) const;
    /// Whether content of this owner is never recorded, whatever the user says.
    static bool isKeptOut(const PasteOrigin &origin);

    /// The change `count` was made by ourselves and is not to be recorded.
    void skipChange(qint64 count);

private:
    /// A copy that is being read.
    struct Capture {
        qint64 change = 0;
        QString sourceApp;
        std::optional<QString> sourceBundleID;
        ReferenceTime seen;
    };
    using Then = void (ClipboardEngine::*)(const PasteData &);

    void captureContent(Capture capture);
    void readNext(std::vector<PasteType> wanted, qsizetype cap, Then then);
    void takeFileUrls(const PasteData &data);
    void takeImage(const PasteData &data);
    void takeHtml(const PasteData &data);
    void takeRichText(const PasteData &data);
    void takeRichTextAsText(const PasteData &data);
    void takeText(const PasteData &data);
    void finish(const ClipboardContent &content);
    void giveUp();

    PasteboardService &pasteboard_;
    WorkspaceService &workspace_;
    KeyPoster &keys_;
    ClipboardStore &store_;
    PreferencesService &defaults_;
    const Clock &clock_;

    bool isActive_ = false;
    QTimer pollingTimer_;
    qint64 lastChangeCount_ = 0;
    std::optional<Capture> capture_;
    QByteArray richText_;  ///< read, while it is seen whether there is a plain form
};

}  // namespace pimloft
