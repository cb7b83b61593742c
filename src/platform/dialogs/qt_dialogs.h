// SPDX-License-Identifier: MIT
#pragma once

#include "platform/dialogs/dialogs.h"

#include <memory>

class QDialog;
class QFileDialog;

namespace pimloft {

/// Questions in windows of the application's own; on every host the same. Main thread.
///
/// A window closes unanswered when the object that asked goes away, and with this service.
class QtDialogs final : public DialogService {
public:
    QtDialogs();
    ~QtDialogs() override;

    void alert(const Alert &alert, QObject *context, std::function<void()> done) override;
    void askForSavePath(const FileQuestion &question, QObject *context, PathAnswer done) override;
    void askForOpenPath(const FileQuestion &question, QObject *context, PathAnswer done) override;

private:
    void ask(QFileDialog *dialog, QObject *context, PathAnswer done);
    void show(QDialog *dialog, QObject *context);

    std::unique_ptr<QObject> owner_;  ///< its end closes the windows
};

}  // namespace pimloft
