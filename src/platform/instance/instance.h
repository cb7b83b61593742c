// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace pimloft {

/// What a second launch can ask of the running one.
enum class InstanceCommand { openPopover, openSettings, quit, doctor };

/// The one running Pimloft of this desktop login. Main thread.
class Instance {
public:
    virtual ~Instance() = default;

    /// Answers a command; the text goes to the asking process's standard output. Called from the event loop.
    std::function<QString(InstanceCommand)> onCommand;
};

/// Becomes the running instance of `login`, which a display names; a user can have several. Nothing when
/// there is one already. `runtime` is the user's private folder for such things.
std::unique_ptr<Instance> claimInstance(const QString &runtime, const QString &login);

/// Asks the running instance and waits for its answer, at most 5 s. Nothing when there is none, or none any
/// more, and when it does not answer. Needs no QApplication, only a QCoreApplication.
std::optional<QString> askInstance(const QString &runtime, const QString &login, InstanceCommand command);

}  // namespace pimloft
