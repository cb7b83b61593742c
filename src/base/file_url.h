// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace pimloft {

/// A file or folder of this computer by its absolute path. The path is kept as bytes, since names need not be
/// text in any encoding. A value; any thread.
class FileUrl {
public:
    /// Slashes at the end do not count. Nothing for a path that is not absolute or holds a zero byte.
    static std::optional<FileUrl> fromPath(QByteArray path);
    /// A path in UTF-8, or a percent-encoded "file://" URL, which is how a path that is no text is told.
    /// Nothing for anything else, and for files of another computer.
    static std::optional<FileUrl> fromText(const QString &text);

    const QByteArray &path() const { return path_; }
    /// "file://" and the path, percent-encoded.
    QByteArray encoded() const;
    /// Empty for the root.
    QByteArray lastPathComponent() const;
    /// The last component for people; bytes that are no text are shown as replacement characters.
    QString name() const { return QString::fromUtf8(lastPathComponent()); }
    FileUrl folder() const;
    /// The entry `name` of this folder.
    FileUrl appending(const QByteArray &name) const;

    friend bool operator==(const FileUrl &, const FileUrl &) = default;

private:
    explicit FileUrl(QByteArray path) : path_(std::move(path)) {}

    QByteArray path_;
};

}  // namespace pimloft
