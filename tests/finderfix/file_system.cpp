// SPDX-License-Identifier: MIT
#include "file_system.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <unistd.h>

namespace pimloft::test {

namespace {

std::filesystem::path pathOf(const FileUrl &file) {
    return file.path().toStdString();
}

}  // namespace

TwoVolumes::TwoVolumes()
    : here_(QStringLiteral(BUILD_FOLDER "/moves-XXXXXX")),
      there_(QStringLiteral(OTHER_VOLUME "/moves-XXXXXX")) {
}

TwoVolumes::~TwoVolumes() {
    removeAll(here());
    removeAll(there());
}

bool TwoVolumes::areTwo() const {
    return there_.isValid() && statusOf(here()).st_dev != statusOf(there()).st_dev;
}

FileUrl TwoVolumes::here() const {
    return FileUrl::fromPath(here_.path().toUtf8()).value();
}

FileUrl TwoVolumes::there() const {
    return FileUrl::fromPath(there_.path().toUtf8()).value();
}

void makeFolder(const FileUrl &folder) {
    std::filesystem::create_directories(pathOf(folder));
}

void write(const FileUrl &file, const QByteArray &content) {
    std::ofstream stream(file.path().toStdString(), std::ios::binary);
    stream.write(content.constData(), content.size());
}

QByteArray read(const FileUrl &file) {
    std::ifstream stream(file.path().toStdString(), std::ios::binary | std::ios::ate);
    if (!stream)
        return {};
    QByteArray content(qsizetype(stream.tellg()), '\0');
    stream.seekg(0);
    stream.read(content.data(), content.size());
    return content;
}

struct stat statusOf(const FileUrl &file) {
    struct stat status {};
    if (lstat(file.path().constData(), &status) != 0)
        status = {};
    return status;
}

bool isThere(const FileUrl &file) {
    return statusOf(file).st_mode != 0;
}

void removeAll(const FileUrl &folder) {
    std::error_code ignored;
    std::filesystem::remove_all(pathOf(folder), ignored);
}

std::string listing(const FileUrl &folder) {
    std::set<std::string> lines;
    const std::filesystem::path root = pathOf(folder);
    for (const auto &entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::string name = entry.path().lexically_relative(root).string();
        if (entry.is_symlink())
            lines.insert(name + " -> " + std::filesystem::read_symlink(entry.path()).string());
        else if (entry.is_directory())
            lines.insert(name + '/');
        else
            lines.insert(name + " = " +
                         read(FileUrl::fromPath(QByteArray::fromStdString(entry.path().string())).value())
                             .toStdString());
    }
    std::string text;
    for (const std::string &line : lines)
        text += line + '\n';
    return text;
}

}  // namespace pimloft::test
