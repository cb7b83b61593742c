// SPDX-License-Identifier: MIT
#include "finderfix/move_alerts.h"

#include "platform/dialogs/dialogs.h"

namespace pimloft {

namespace {

QString explanation(const FileError &error) {
    switch (error.problem) {
    case FileProblem::noPermission:
        return MoveAlerts::tr("Permission denied. The file may be locked or you may not have access.");
    case FileProblem::noSpace:
        return MoveAlerts::tr("Not enough disk space at the destination.");
    default:
        return error.description;
    }
}

}  // namespace

MoveAlerts::MoveAlerts(DialogService &dialogs) : dialogs_(dialogs) {
}

void MoveAlerts::show(const MoveFailure &failure) {
    waiting_.push_back(failure);
    if (waiting_.size() == 1)
        showNext();
}

void MoveAlerts::showNext() {
    const MoveFailure &failure = waiting_.front();
    dialogs_.alert({.style = Alert::Style::warning,
                    .message = tr("Could not move \"%1\"").arg(failure.name),
                    .informativeText = explanation(failure.error),
                    .button = tr("OK")},
                   this, [this] {
                       waiting_.pop_front();
                       if (!waiting_.empty())
                           showNext();
                   });
}

}  // namespace pimloft
