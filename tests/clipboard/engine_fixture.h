// SPDX-License-Identifier: MIT
#pragma once

#include "app/settings_keys.h"
#include "clipboard/clipboard_engine.h"
#include "clipboard/clipboard_store.h"
#include "entries.h"
#include "platform/fake_desktop.h"
#include "support/qt_printers.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace pimloft::test {

/// A clock that a test sets.
class StillClock final : public Clock {
public:
    Instant now() const override { return {}; }
    QDateTime wallTime() const override { return wall; }
    QDateTime wall{QDate(2024, 3, 1), QTime(12, 0), Qt::UTC};
};

inline const Application editor{.name = QStringLiteral("Editor"),
                                .bundleId = QStringLiteral("org.example.Editor"),
                                .processId = ProcessId(7)};

/// An engine at work, with an editor in front.
class ClipboardEngineTest : public testing::Test {
protected:
    ClipboardEngineTest() {
        desktop.workspace.frontmost = editor;
        engine.start();
        desktop.log();
    }

    void setExcluded(const QStringList &names) {
        desktop.preferences.stored[SettingsKeys::clipboardExcludedApps] = names;
    }
    void setFront(const QString &name, const std::optional<QString> &bundleId = {}) {
        desktop.workspace.frontmost = Application{.name = name, .bundleId = bundleId};
    }
    /// Lets every pending question be answered and what is posted be done.
    void settle() {
        while (desktop.pasteboard.answer()) {
        }
        QCoreApplication::processEvents();
    }
    void copy(std::vector<PasteItem> items) {
        desktop.pasteboard.copy(std::move(items));
        engine.checkForChanges();
        settle();
    }
    void copyText(const QByteArray &text) { copy({{PasteType::plainText, text}}); }
    std::string recorded() const { return summary(store.items()); }
    const ClipboardItem &newest() const { return store.items().front(); }

    FakeDesktop desktop;
    StillClock clock;
    QTemporaryDir folder;
    ClipboardStore store{desktop.preferences, folder.path()};
    ClipboardEngine engine{
        desktop.pasteboard, desktop.workspace, desktop.keys, store, desktop.preferences, clock};
};

}  // namespace pimloft::test
