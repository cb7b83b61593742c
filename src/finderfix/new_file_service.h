// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"

#include <QString>

#include <vector>

namespace pimloft {

/// The user's own templates for new files. Main thread.
class NewFileService {
public:
    static NewFileService &shared();
    /// In the folder "Templates" of `support`.
    explicit NewFileService(QString support);

    /// The folder that holds them. Is made, with its parents, where it is missing; that it cannot be made is
    /// ignored.
    QString templatesDirectory() const;

    /// Its entries without the hidden ones, in the plain order of their names. Empty where it cannot be read.
    std::vector<FileUrl> customTemplates() const;

private:
    const QString support_;
};

}  // namespace pimloft
