// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <optional>
#include <vector>

namespace pimloft {

/// One file that was put into the templates folder, or is about to be.
struct RecordedTemplate {
    QByteArray name;
    QByteArrayList digests;  ///< of what it holds; two while it is being replaced
    bool isMade = false;     ///< it was there at some time

    friend bool operator==(const RecordedTemplate &, const RecordedTemplate &) = default;
};

/// What this program has put where: nothing else in the folder is its own. A value.
struct TemplateRecord {
    std::optional<FileUrl> folder;
    std::vector<RecordedTemplate> entries;

    RecordedTemplate *find(const QByteArray &name);

    /// Of a file's content; what makes no sense is left out. Pure; any thread.
    static TemplateRecord parse(const QByteArray &bytes);
    QByteArray encoded() const;

    /// Of the file at `path`; an empty record where there is none, or none that makes sense. Any thread.
    static TemplateRecord read(const QString &path);
    /// False when it could not be written. An empty record is no file.
    bool write(const QString &path) const;

    friend bool operator==(const TemplateRecord &, const TemplateRecord &) = default;
};

}  // namespace pimloft
