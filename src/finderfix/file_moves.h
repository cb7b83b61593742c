// SPDX-License-Identifier: MIT
#pragma once

#include "finderfix/file_mover.h"
#include "finderfix/move_alerts.h"

#include <QFuture>
#include <QObject>
#include <QThreadPool>

#include <vector>

namespace pimloft {

/// Moves files in the background, everything in the order in which it was asked for. Main thread.
///
/// Its end gives up what is still to be moved: those files stay where they are, whole.
class FileMoves : public QObject {
    Q_OBJECT

public:
    explicit FileMoves(FileService &files);
    ~FileMoves() override;

    void move(std::vector<FileUrl> items, const FileUrl &folder);

signals:
    void failed(const pimloft::MoveFailure &failure);

private:
    const FileMover mover_;
    QThreadPool thread_;  ///< one
    std::vector<QFuture<MoveFailure>> underWay_;
};

}  // namespace pimloft
