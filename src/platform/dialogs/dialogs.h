// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

class QObject;

namespace pimloft {

/// A message that the user has to see.
struct Alert {
    enum class Style { informational, warning } style = Style::informational;
    QString message;
    QString informativeText;
    QString button;  ///< the one button that closes it
};

/// A question for a file.
struct FileQuestion {
    QString title;
    QString proposedName;  ///< for saving
    QString mimeType;      ///< the only type offered
};

/// Questions to the user. Main thread. Each returns at once and never runs an event loop of its own; `done`
/// is called once, queued, never after `context` is gone.
class DialogService {
public:
    virtual ~DialogService() = default;

    virtual void alert(const Alert &alert, QObject *context, std::function<void()> done) = 0;

    /// Answers a path, or nothing when the user cancels.
    using PathAnswer = std::function<void(std::optional<QString>)>;
    virtual void askForSavePath(const FileQuestion &question, QObject *context, PathAnswer done) = 0;
    virtual void askForOpenPath(const FileQuestion &question, QObject *context, PathAnswer done) = 0;
};

}  // namespace pimloft
