// SPDX-License-Identifier: MIT
#pragma once

#include "base/file_url.h"
#include "platform/templates_menu/template_record.h"
#include "platform/templates_menu/templates_menu.h"

namespace pimloft {

/// Our entries in the folder from which file managers make their menus for new files: plain files, since some
/// of them would make a link of a link. By one thread at a time; waits for the disk.
///
/// A file counts as ours while it holds what the record says was put into it. Names that are taken stay with
/// whom they belong to. Nothing is done where the folder is missing or no folder of its own.
class TemplateEntries {
public:
    /// `home` is no templates folder: that is how it is switched off.
    TemplateEntries(FileUrl folder, FileUrl home, QString recordPath);

    void put(const std::vector<NewFileKind> &kinds, const std::vector<FileUrl> &templates);
    void removeAll();

private:
    struct Content;
    std::vector<Content> read(const std::vector<NewFileKind> &kinds,
                              const std::vector<FileUrl> &templates) const;
    bool isUsable() const;
    bool isFolderOf(const std::vector<FileUrl> &templates) const;
    void forgetOtherFolder();
    void removeUnwanted(const std::vector<Content> &wanted);
    bool plan(const Content &content);
    void make(const Content &content);
    bool isOurs(const RecordedTemplate &entry) const;
    void removeOurs(const RecordedTemplate &entry) const;

    const FileUrl folder_;
    const FileUrl home_;
    const QString recordPath_;
    TemplateRecord record_;
};

}  // namespace pimloft
