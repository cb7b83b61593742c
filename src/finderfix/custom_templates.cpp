// SPDX-License-Identifier: MIT
#include "finderfix/custom_templates.h"

#include "app/process.h"
#include "finderfix/new_file_service.h"

#include <QFile>

namespace pimloft {

namespace {

constexpr std::chrono::milliseconds restTime{200};

}  // namespace

CustomTemplates &CustomTemplates::shared() {
    return Process::current().shared<CustomTemplates>(
        [](Process &) { return std::make_unique<CustomTemplates>(NewFileService::shared()); });
}

CustomTemplates::CustomTemplates(const NewFileService &service) : service_(service) {
    rest_.setSingleShot(true);
    rest_.setInterval(restTime);
    connect(&rest_, &QTimer::timeout, this, &CustomTemplates::readAgain);
}

const std::vector<FileUrl> &CustomTemplates::read() {
    if (!watcher_) {
        watcher_ = std::make_unique<QFileSystemWatcher>();
        const auto wait = [this] { rest_.start(); };
        connect(watcher_.get(), &QFileSystemWatcher::directoryChanged, this, wait);
        connect(watcher_.get(), &QFileSystemWatcher::fileChanged, this, wait);
    }
    // Watched before they are read, so that no change falls in between.
    watcher_->addPath(service_.templatesDirectory());
    list_ = service_.customTemplates();
    watch();
    return list_;
}

void CustomTemplates::readAgain() {
    read();
    emit changed();
}

/// A folder does not tell of what is written into its files.
void CustomTemplates::watch() {
    for (const FileUrl &file : list_) {
        const QString path = QFile::decodeName(file.path());
        if (!watcher_->files().contains(path) && QFile::exists(path))
            watcher_->addPath(path);
    }
}

}  // namespace pimloft
