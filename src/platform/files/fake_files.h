// SPDX-License-Identifier: MIT
#pragma once

#include "platform/files/files.h"

#include <QMutex>
#include <QSemaphore>

#include <map>
#include <set>
#include <string>

namespace pimloft {

/// A file system in memory, with the faults that a test puts in. Any thread.
class FakeFiles final : public FileService {
public:
    FileOutcome rename(const FileUrl &item, const FileUrl &newName) override;
    Staged stage(const FileUrl &item, const FileUrl &folder, const IsCancelled &isCancelled) override;

    /// A file; or a folder without content, where `path` ends with a slash.
    void add(const QByteArray &path, const QByteArray &content = {});
    void remove(const QByteArray &path);
    /// What lies below this folder is a volume of its own.
    void addVolume(const QByteArray &folder);

    enum class Step { rename, stage, place, removeOriginal };
    /// From now on this step fails for this item, by the path that it has before the step; a copy has that of
    /// its original.
    void fail(Step step, const QByteArray &path, const FileError &error);

    /// What is asked from now on waits until it is let go on.
    void hold();
    void letGo();

    /// Every item and its content, one per line; copies that have no name yet are in angle brackets.
    std::string tree() const;
    /// The steps that have been begun, one per line.
    std::string steps() const;

private:
    friend class FakeCopy;
    FileOutcome begin(Step step, const QByteArray &path);
    QByteArray volume(const QByteArray &path) const;
    void moveTree(const QByteArray &from, const QByteArray &to, bool keep);
    void removeTree(const QByteArray &path);
    bool has(const QByteArray &path) const;

    mutable QMutex mutex_;
    QSemaphore gate_{1};
    std::map<QByteArray, QByteArray> items_;
    std::set<QByteArray> volumes_;
    std::map<std::pair<Step, QByteArray>, FileError> faults_;
    std::string steps_;
};

}  // namespace pimloft
