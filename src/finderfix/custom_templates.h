// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

namespace pimloft {

class NewFileService;

/// The user's templates as they are now. Main thread.
class CustomTemplates : public QObject {
    Q_OBJECT

public:
    static CustomTemplates &shared();
    explicit CustomTemplates(const NewFileService &service);

    /// Reads them, and watches them from the first time on.
    const std::vector<FileUrl> &read();
    /// As they were read last.
    const std::vector<FileUrl> &list() const { return list_; }

signals:
    /// They were read again after one came, went or was changed.
    void changed();

private:
    void readAgain();
    void watch();

    const NewFileService &service_;
    std::vector<FileUrl> list_;
    std::unique_ptr<QFileSystemWatcher> watcher_;
    QTimer rest_;  ///< runs until a change is over: a file that is written changes many times
};

}  // namespace pimloft
