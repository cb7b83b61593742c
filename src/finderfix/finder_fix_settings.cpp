// SPDX-License-Identifier: MIT
#include "finderfix/finder_fix_settings.h"

#include "finderfix/custom_templates.h"
#include "finderfix/file_template.h"
#include "finderfix/new_file_service.h"
#include "platform/workspace/workspace.h"

#include <QUrl>

namespace pimloft {

FinderFixSettings::FinderFixSettings(const NewFileService &newFiles, CustomTemplates &templates,
                                     WorkspaceService &workspace)
    : newFiles_(newFiles), templates_(templates), workspace_(workspace) {
    connect(&templates, &CustomTemplates::changed, this, &FinderFixSettings::customTemplatesChanged);
}

QVariantList FinderFixSettings::fileTemplates() const {
    QVariantList rows;
    for (const FileTemplate kind : allFileTemplates) {
        FileTemplateRow row;
        row.icon = icon(kind);
        row.title = title(kind);
        rows << QVariant::fromValue(row);
    }
    return rows;
}

QStringList FinderFixSettings::customTemplates() const {
    QStringList names;
    for (const FileUrl &file : templates_.list())
        names << file.name();
    return names;
}

void FinderFixSettings::refresh() {
    templates_.read();
    emit customTemplatesChanged();
}

void FinderFixSettings::openTemplatesFolder() {
    workspace_.reveal(newFiles_.templatesDirectory());
}

void FinderFixSettings::openExtensionSettings() {
    workspace_.open(
        QUrl(QStringLiteral("x-apple.systempreferences:com.apple.preferences.extensions?Finder")));
}

}  // namespace pimloft
