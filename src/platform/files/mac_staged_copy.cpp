// SPDX-License-Identifier: MIT
#include "platform/files/mac_staged_copy.h"

#include "platform/files/file_error.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <copyfile.h>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <sys/stdio.h>
#include <unistd.h>
#include <utility>

namespace pimloft {

namespace {

namespace fs = std::filesystem;

constexpr copyfile_flags_t everythingThatBelongsToIt =
    COPYFILE_ALL | COPYFILE_RECURSIVE | COPYFILE_NOFOLLOW | COPYFILE_EXCL;

struct FreeState {
    void operator()(copyfile_state_t state) const { copyfile_state_free(state); }
};

struct Progress {
    const FileService::IsCancelled &isCancelled;
    bool wasCancelled = false;
};

int askWhetherToGoOn(int, int, copyfile_state_t, const char *, const char *, void *context) {
    auto &progress = *static_cast<Progress *>(context);
    progress.wasCancelled = progress.wasCancelled || progress.isCancelled();
    return progress.wasCancelled ? COPYFILE_QUIT : COPYFILE_CONTINUE;
}

int copy(const std::string &from, const std::string &to, const FileService::IsCancelled &isCancelled) {
    const std::unique_ptr<std::remove_pointer_t<copyfile_state_t>, FreeState> state(copyfile_state_alloc());
    Progress progress{isCancelled};
    copyfile_state_set(state.get(), COPYFILE_STATE_STATUS_CB,
                       reinterpret_cast<const void *>(askWhetherToGoOn));
    copyfile_state_set(state.get(), COPYFILE_STATE_STATUS_CTX, &progress);
    if (copyfile(from.c_str(), to.c_str(), state.get(), everythingThatBelongsToIt) == 0)
        return 0;
    return progress.wasCancelled ? ECANCELED : errno;
}

std::string nameOf(const std::string &path) {
    return path.substr(path.rfind('/') + 1);
}

std::string hiddenName(const std::string &path) {
    std::string name = '.' + nameOf(path).substr(0, 200) + ".part-";
    for (int letter = 0; letter < 6; ++letter)
        name += char('a' + QRandomGenerator::global()->bounded(26));
    return name;
}

/// The entry itself, without what is in it.
int removeEntry(const std::string &path) {
    return std::remove(path.c_str()) == 0 || errno == ENOENT ? 0 : errno;
}

}  // namespace

int renameWithoutReplacing(const std::string &from, const std::string &to) {
    if (renamex_np(from.c_str(), to.c_str(), RENAME_EXCL) == 0)
        return 0;
    if (errno != ENOTSUP)
        return errno;
    struct stat there {};
    if (lstat(to.c_str(), &there) == 0)
        return EEXIST;
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

MacStagedCopy::MacStagedCopy(std::string original, std::string folder)
    : original_(std::move(original)), folder_(std::move(folder)) {
}

MacStagedCopy::~MacStagedCopy() {
    std::error_code ignored;
    if (!hidden_.empty())
        fs::remove_all(hidden_, ignored);
}

int MacStagedCopy::make(const FileService::IsCancelled &isCancelled) {
    if (const int error = record())
        return error;
    hidden_ = folder_ + '/' + hiddenName(original_);
    if (const int error = copy(original_, hidden_, isCancelled))
        return error;
    return sync_volume_np(folder_.c_str(), SYNC_VOLUME_WAIT) == 0 ? 0 : errno;
}

FileOutcome MacStagedCopy::placeAs(const QByteArray &name) {
    const int error = renameWithoutReplacing(hidden_, folder_ + '/' + name.toStdString());
    if (error == 0)
        hidden_.clear();
    return fileOutcome(error);
}

FileOutcome MacStagedCopy::removeOriginal() {
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
        if (!isStill(*entry))
            return fileOutcome(EBUSY);
        if (const int error = removeEntry(entry->path))
            return fileOutcome(error);
    }
    return std::nullopt;
}

MacStagedCopy::Entry MacStagedCopy::look(const std::string &path) {
    Entry entry{path};
    if (lstat(path.c_str(), &entry.status) == 0 && S_ISREG(entry.status.st_mode))
        entry.modified = QFileInfo(QFile::decodeName(path.c_str()))
                             .fileTime(QFile::FileModificationTime)
                             .toMSecsSinceEpoch();
    return entry;
}

bool MacStagedCopy::isStill(const Entry &entry) {
    const Entry now = look(entry.path);
    const bool isThere = now.status.st_ino != 0;
    if (!isThere)
        return true;  // somebody else has removed it
    const bool isSame = now.status.st_dev == entry.status.st_dev &&
                        now.status.st_ino == entry.status.st_ino &&
                        (now.status.st_mode & S_IFMT) == (entry.status.st_mode & S_IFMT);
    return isSame && (S_ISDIR(now.status.st_mode) ||
                      (now.status.st_size == entry.status.st_size && now.modified == entry.modified));
}

/// Zero or the error number: what cannot be looked at could not be removed either.
int MacStagedCopy::record() {
    entries_ = {look(original_)};
    std::error_code error;
    if (!S_ISDIR(entries_.front().status.st_mode))
        return 0;
    fs::recursive_directory_iterator each(original_, error);
    for (; !error && each != fs::recursive_directory_iterator(); each.increment(error))
        entries_.push_back(look(each->path().string()));
    return error.value();
}

}  // namespace pimloft
