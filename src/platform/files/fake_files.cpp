// SPDX-License-Identifier: MIT
#include "platform/files/fake_files.h"

#include <QMutexLocker>

namespace pimloft {

namespace {

const FileError missing{FileProblem::other, QStringLiteral("No such file or directory")};
const FileError taken{FileProblem::exists, QStringLiteral("File exists")};
const FileError elsewhere{FileProblem::otherVolume, QStringLiteral("Invalid cross-device link")};
const FileError intoItself{FileProblem::other, QStringLiteral("A folder cannot be moved into itself.")};
const FileError givenUp{FileProblem::cancelled, QStringLiteral("Operation canceled")};

QByteArray folderOf(const QByteArray &path) {
    return path.left(path.lastIndexOf('/'));
}

bool isIn(const QByteArray &path, const QByteArray &folder) {
    return path.startsWith(folder) && (path.size() == folder.size() || path.at(folder.size()) == '/');
}

}  // namespace

/// A copy that stands in the same map, under a name that no path has.
class FakeCopy final : public StagedCopy {
public:
    FakeCopy(FakeFiles &files, QByteArray original, QByteArray folder)
        : files_(files), original_(std::move(original)), folder_(std::move(folder)),
          copy_('<' + folder_ + '/' + original_.mid(original_.lastIndexOf('/') + 1) + '>') {
        files_.moveTree(original_, copy_, true);
    }
    ~FakeCopy() override {
        const QMutexLocker lock(&files_.mutex_);
        files_.removeTree(copy_);
    }

    FileOutcome placeAs(const QByteArray &name) override {
        if (auto error = files_.begin(FakeFiles::Step::place, original_))
            return error;
        const QMutexLocker lock(&files_.mutex_);
        if (files_.has(folder_ + '/' + name))
            return taken;
        files_.moveTree(copy_, folder_ + '/' + name, false);
        return std::nullopt;
    }

    FileOutcome removeOriginal() override {
        if (auto error = files_.begin(FakeFiles::Step::removeOriginal, original_))
            return error;
        const QMutexLocker lock(&files_.mutex_);
        files_.removeTree(original_);
        return std::nullopt;
    }

private:
    FakeFiles &files_;
    const QByteArray original_;
    const QByteArray folder_;
    const QByteArray copy_;
};

FileOutcome FakeFiles::rename(const FileUrl &item, const FileUrl &newName) {
    if (auto error = begin(Step::rename, item.path()))
        return error;
    const QMutexLocker lock(&mutex_);
    if (!has(item.path()) || !has(newName.folder().path()))
        return missing;
    if (has(newName.path()))
        return taken;
    if (isIn(newName.path(), item.path()))
        return intoItself;
    if (volume(item.path()) != volume(newName.path()))
        return elsewhere;
    moveTree(item.path(), newName.path(), false);
    return std::nullopt;
}

FileService::Staged FakeFiles::stage(const FileUrl &item, const FileUrl &folder,
                                     const IsCancelled &isCancelled) {
    if (auto error = begin(Step::stage, item.path()))
        return {nullptr, error};
    if (isCancelled())
        return {nullptr, givenUp};
    const QMutexLocker lock(&mutex_);
    if (!has(item.path()) || !has(folder.path()))
        return {nullptr, missing};
    if (isIn(folder.path(), item.path()))
        return {nullptr, intoItself};
    return {std::make_unique<FakeCopy>(*this, item.path(), folder.path()), std::nullopt};
}

void FakeFiles::add(const QByteArray &path, const QByteArray &content) {
    const QMutexLocker lock(&mutex_);
    const bool isFolder = path.endsWith('/');
    const QByteArray name = isFolder ? path.chopped(1) : path;
    for (QByteArray folder = folderOf(name); !folder.isEmpty(); folder = folderOf(folder))
        items_.try_emplace(folder, "/");
    items_[name] = isFolder ? QByteArrayLiteral("/") : content;
}

void FakeFiles::remove(const QByteArray &path) {
    const QMutexLocker lock(&mutex_);
    removeTree(path);
}

void FakeFiles::addVolume(const QByteArray &folder) {
    add(folder + '/');
    const QMutexLocker lock(&mutex_);
    volumes_.insert(folder);
}

void FakeFiles::fail(Step step, const QByteArray &path, const FileError &error) {
    const QMutexLocker lock(&mutex_);
    faults_.insert_or_assign({step, path}, error);
}

void FakeFiles::hold() {
    gate_.acquire();
}

void FakeFiles::letGo() {
    gate_.release();
}

std::string FakeFiles::tree() const {
    const QMutexLocker lock(&mutex_);
    std::string lines;
    for (const auto &[path, content] : items_)
        lines += path.toStdString() + (content == "/" ? "" : " ") + content.toStdString() + '\n';
    return lines;
}

std::string FakeFiles::steps() const {
    const QMutexLocker lock(&mutex_);
    return steps_;
}

FileOutcome FakeFiles::begin(Step step, const QByteArray &path) {
    gate_.acquire();
    gate_.release();
    static constexpr const char *names[] = {"rename ", "copy ", "place ", "remove "};
    const QMutexLocker lock(&mutex_);
    steps_ += names[int(step)] + path.toStdString() + '\n';
    const auto fault = faults_.find({step, path});
    return fault == faults_.end() ? FileOutcome() : fault->second;
}

QByteArray FakeFiles::volume(const QByteArray &path) const {
    QByteArray nearest;
    for (const QByteArray &folder : volumes_)
        if (isIn(path, folder) && folder.size() > nearest.size())
            nearest = folder;
    return nearest;
}

void FakeFiles::moveTree(const QByteArray &from, const QByteArray &to, bool keep) {
    std::map<QByteArray, QByteArray> moved;
    for (auto item = items_.lower_bound(from); item != items_.end() && item->first.startsWith(from); ++item)
        if (isIn(item->first, from))
            moved.emplace(to + item->first.mid(from.size()), item->second);
    if (!keep)
        removeTree(from);
    items_.merge(moved);
}

void FakeFiles::removeTree(const QByteArray &path) {
    for (auto item = items_.lower_bound(path); item != items_.end() && item->first.startsWith(path);)
        item = isIn(item->first, path) ? items_.erase(item) : std::next(item);
}

bool FakeFiles::has(const QByteArray &path) const {
    return items_.contains(path);
}

}  // namespace pimloft
