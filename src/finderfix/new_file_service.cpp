// SPDX-License-Identifier: MIT
#include "finderfix/new_file_service.h"

#include "app/process.h"
#include "base/atomic_file.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

namespace pimloft {

NewFileService &NewFileService::shared() {
    return Process::current().shared<NewFileService>(
        [](Process &process) { return std::make_unique<NewFileService>(process.dirs().support); });
}

NewFileService::NewFileService(QString support) : support_(std::move(support)) {
}

QString NewFileService::templatesDirectory() const {
    const QString path = support_ + QStringLiteral("/Templates");
    makePrivateFolder(path);
    return path;
}

std::vector<FileUrl> NewFileService::customTemplates() const {
    const auto folder = FileUrl::fromPath(QFile::encodeName(templatesDirectory()));
    if (!folder)
        return {};
    // Not QDir, which cannot tell names that are no text.
    std::vector<QByteArray> names;
    std::error_code error;
    std::filesystem::directory_iterator entries(folder->path().toStdString(), error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        const std::string name = entries->path().filename().string();
        if (!name.starts_with('.'))
            names.push_back(QByteArray::fromStdString(name));
    }
    if (error)
        return {};
    std::sort(names.begin(), names.end());
    std::vector<FileUrl> files;
    for (const QByteArray &name : names)
        files.push_back(folder->appending(name));
    return files;
}

}  // namespace pimloft
