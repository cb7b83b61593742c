// SPDX-License-Identifier: MIT
#include "platform/templates_menu/template_entries.h"

#include "base/atomic_file.h"
#include "platform/files/descriptor.h"
#include "platform/files/file_calls.h"
#include "platform/files/no_replace_rename.h"

#include <QCryptographicHash>
#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace pimloft {

namespace {

/// A larger file is no template.
constexpr qsizetype largestTemplate = 64 << 20;

bool isSameFolder(const FileUrl &a, const FileUrl &b) {
    struct stat one {};
    struct stat other {};
    return stat(a.path().constData(), &one) == 0 && stat(b.path().constData(), &other) == 0 &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool isFolder(const FileUrl &url) {
    struct stat status {};
    return stat(url.path().constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isThere(const FileUrl &file) {
    struct stat status {};
    return lstat(file.path().constData(), &status) == 0;
}

struct FileRead {
    QByteArray bytes;
    mode_t mode = 0;
};

/// Nothing for what is no file, too large or not to be read.
std::optional<FileRead> readFile(const FileUrl &url, int flags) {
    const Descriptor descriptor(open(url.path().constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | flags));
    struct stat status {};
    if (!descriptor || fstat(descriptor.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    QFile file;
    if (status.st_size > largestTemplate || !file.open(descriptor.get(), QFile::ReadOnly))
        return std::nullopt;
    FileRead result{file.read(largestTemplate + 1), mode_t(status.st_mode & 0777)};
    if (file.error() != QFile::NoError || result.bytes.size() > largestTemplate)
        return std::nullopt;
    return result;
}

QByteArray digestOf(const QByteArray &bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

/// Under a hidden name, so that no half entry is ever seen. Nothing when that fails.
std::optional<QByteArray> writeHidden(int folder, const QByteArray &bytes, mode_t mode) {
    const QByteArray name = ".new-file-" + QByteArray::number(QRandomGenerator::global()->generate64(), 36);
    const FileCalls calls{};
    int number = -1;
    if (calls.makeFile({folder, name.constData()}, mode, number) != 0)
        return std::nullopt;
    const Descriptor file(number);
    if (writeFully(number, bytes) == 0)
        return name;
    calls.removeFile({folder, name.constData()});
    return std::nullopt;
}

}  // namespace

/// An entry as it is to be.
struct TemplateEntries::Content {
    QByteArray name;
    QByteArray bytes;
    mode_t mode;
    QByteArray digest;
};

TemplateEntries::TemplateEntries(FileUrl folder, FileUrl home, QString recordPath)
    : folder_(std::move(folder)), home_(std::move(home)), recordPath_(std::move(recordPath)) {
}

void TemplateEntries::put(const std::vector<NewFileKind> &kinds, const std::vector<FileUrl> &templates) {
    if (!isUsable() || isFolderOf(templates))
        return;
    record_ = TemplateRecord::read(recordPath_);
    forgetOtherFolder();
    std::vector<Content> wanted = read(kinds, templates);
    removeUnwanted(wanted);
    std::erase_if(wanted, [this](const Content &content) { return !plan(content); });
    // Before the first file: what is not on record would be taken for the user's.
    if (!record_.write(recordPath_))
        return;
    for (const Content &content : wanted)
        make(content);
    record_.write(recordPath_);
}

void TemplateEntries::removeAll() {
    record_ = TemplateRecord::read(recordPath_);
    // A folder that is away for a while comes back with our entries in it.
    if (!record_.folder || !isFolder(*record_.folder))
        return;
    for (const RecordedTemplate &entry : record_.entries)
        removeOurs(entry);
    record_ = {};
    record_.write(recordPath_);
}

bool TemplateEntries::isUsable() const {
    return isFolder(folder_) && !isSameFolder(folder_, home_);
}

/// Whoever keeps the templates in that very folder has them in the menu already, and would find our entries
/// among them.
bool TemplateEntries::isFolderOf(const std::vector<FileUrl> &templates) const {
    return std::any_of(templates.begin(), templates.end(),
                       [this](const FileUrl &file) { return isSameFolder(folder_, file.folder()); });
}

std::vector<TemplateEntries::Content> TemplateEntries::read(const std::vector<NewFileKind> &kinds,
                                                            const std::vector<FileUrl> &templates) const {
    std::vector<Content> wanted;
    for (const FileUrl &file : templates)
        if (auto read = readFile(file, 0))
            wanted.push_back({file.lastPathComponent(), read->bytes, read->mode, digestOf(read->bytes)});
    for (const NewFileKind &kind : kinds) {
        const bool isTaken = std::any_of(wanted.begin(), wanted.end(),
                                         [&](const Content &each) { return each.name == kind.name; });
        if (!isTaken)
            wanted.push_back(
                {kind.name, kind.content, mode_t(kind.isExecutable ? 0777 : 0666), digestOf(kind.content)});
    }
    return wanted;
}

void TemplateEntries::forgetOtherFolder() {
    if (record_.folder && !isSameFolder(*record_.folder, folder_)) {
        for (const RecordedTemplate &entry : record_.entries)
            removeOurs(entry);
        record_.entries.clear();
    }
    record_.folder = folder_;
}

void TemplateEntries::removeUnwanted(const std::vector<Content> &wanted) {
    std::erase_if(record_.entries, [&](const RecordedTemplate &entry) {
        const bool isWanted = std::any_of(wanted.begin(), wanted.end(),
                                          [&](const Content &each) { return each.name == entry.name; });
        if (!isWanted)
            removeOurs(entry);
        return !isWanted;
    });
}

/// Puts the entry on record. False where nothing is to be written.
bool TemplateEntries::plan(const Content &content) {
    RecordedTemplate *entry = record_.find(content.name);
    if (!isThere(folder_.appending(content.name))) {
        // The user took it out of the menu.
        if (entry && entry->isMade)
            return false;
        if (!entry)
            record_.entries.push_back({content.name, {content.digest}, false});
        else
            entry->digests = {content.digest};
        return true;
    }
    if (!entry)
        return false;
    if (!isOurs(*entry)) {
        // The user has made it his own.
        record_.entries.erase(record_.entries.begin() + (entry - record_.entries.data()));
        return false;
    }
    entry->isMade = true;
    const bool isCurrent = entry->digests == QByteArrayList{content.digest};
    if (!entry->digests.contains(content.digest))
        entry->digests << content.digest;
    return !isCurrent;
}

void TemplateEntries::make(const Content &content) {
    RecordedTemplate *entry = record_.find(content.name);
    const Descriptor folder(open(folder_.path().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const auto hidden = writeHidden(folder.get(), content.bytes, content.mode);
    if (!hidden)
        return;
    const FileCalls calls{};
    const Place from{folder.get(), hidden->constData()};
    const Place to{folder.get(), content.name.constData()};
    const int error = isOurs(*entry) ? calls.rename(from, to) : renameNeverReplacing(calls, from, to);
    if (error) {
        calls.removeFile(from);
        return;
    }
    entry->digests = {content.digest};
    entry->isMade = true;
}

bool TemplateEntries::isOurs(const RecordedTemplate &entry) const {
    const auto read = readFile(record_.folder->appending(entry.name), O_NOFOLLOW);
    return read && entry.digests.contains(digestOf(read->bytes));
}

void TemplateEntries::removeOurs(const RecordedTemplate &entry) const {
    if (isOurs(entry))
        FileCalls().removeFile({AT_FDCWD, record_.folder->appending(entry.name).path().constData()});
}

}  // namespace pimloft
