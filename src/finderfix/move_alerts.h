// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/files.h"

#include <QObject>
#include <QString>

#include <deque>

namespace pimloft {

class DialogService;

/// A file that could not be moved, and why.
struct MoveFailure {
    QString name;
    FileError error;
};

/// Tells the user of files that could not be moved: one alert each, one after the other. Main thread.
class MoveAlerts : public QObject {
    Q_OBJECT

public:
    explicit MoveAlerts(DialogService &dialogs);

    void show(const MoveFailure &failure);

private:
    void showNext();

    DialogService &dialogs_;
    std::deque<MoveFailure> waiting_;  ///< the first one is on screen
};

}  // namespace pimloft
