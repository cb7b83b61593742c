// SPDX-License-Identifier: MIT
#pragma once

#include "platform/preferences/preferences.h"
#include "platform/preferences/preferences_document.h"

#include <QTimer>

namespace pimloft {

/// Preferences in one JSON file that is read once and rewritten whole. Main thread.
///
/// A first change is written when the program returns to its event loop; what follows closely (a slider)
/// waits a quarter of a second and is then written together, since each write waits for the disk. At most the
/// changes of that time are lost when the process is killed. Failures are silent: the values hold, writing is
/// tried again every ten seconds, and the write that succeeds stores all of them.
class JsonPreferences final : public PreferencesService {
public:
    /// `folder` is where "preferences.json" is or will be.
    explicit JsonPreferences(const QString &folder);
    /// Writes what is not written yet.
    ~JsonPreferences() override;

    void registerDefaults(const QVariantMap &defaults) override;
    QVariant object(const QString &key) const override;
    /// An invalid value forgets the stored one.
    void set(const QString &key, const QVariant &value) override;

    /// Writes what is not written yet, at once.
    void flush();

private:
    void read();
    bool setDamagedFileAside();

    QString path_;
    PreferencesDocument document_;
    QVariantMap defaults_;
    QTimer timer_;  ///< runs from a change to its write, and for a moment after each write
    bool isDirty_ = false;
    bool isDamaged_ = false;  ///< there is a file that could not be read
};

}  // namespace pimloft
