// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantList>

namespace pimloft {

class CustomTemplates;
class NewFileService;
class WorkspaceService;

/// One line of the page's list of file kinds. A value.
struct FileTemplateRow {
    Q_GADGET
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString title MEMBER title)

public:
    QString icon;
    QString title;
};

/// What the page of the file tools shows and does. Main thread.
class FinderFixSettings : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList fileTemplates READ fileTemplates CONSTANT)
    Q_PROPERTY(QStringList customTemplates READ customTemplates NOTIFY customTemplatesChanged)

public:
    FinderFixSettings(const NewFileService &newFiles, CustomTemplates &templates,
                      WorkspaceService &workspace);

    /// A FileTemplateRow for each kind.
    QVariantList fileTemplates() const;
    /// The names of the user's own, as they were read last.
    QStringList customTemplates() const;
    /// Reads them again.
    void refresh();

    Q_INVOKABLE void openTemplatesFolder();
    Q_INVOKABLE void openExtensionSettings();

signals:
    void customTemplatesChanged();

private:
    const NewFileService &newFiles_;
    CustomTemplates &templates_;
    WorkspaceService &workspace_;
};

}  // namespace pimloft
