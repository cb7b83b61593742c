// SPDX-License-Identifier: MIT
#include "platform/dialogs/qt_dialogs.h"

#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QMimeDatabase>

namespace pimloft {

namespace {

QFileDialog *makeFileDialog(const FileQuestion &question) {
    auto *dialog = new QFileDialog;
    dialog->setWindowTitle(question.title);
    if (!question.mimeType.isEmpty()) {
        dialog->setMimeTypeFilters({question.mimeType});
        dialog->setDefaultSuffix(QMimeDatabase().mimeTypeForName(question.mimeType).preferredSuffix());
    }
    return dialog;
}

/// The answer of a file dialog that has been closed.
std::optional<QString> chosenPath(const QFileDialog &dialog, int result) {
    const QStringList paths = dialog.selectedFiles();
    return result == QDialog::Accepted && !paths.isEmpty() ? std::optional(paths.first()) : std::nullopt;
}

}  // namespace

QtDialogs::QtDialogs() : owner_(std::make_unique<QObject>()) {
}

QtDialogs::~QtDialogs() = default;

void QtDialogs::show(QDialog *dialog, QObject *context) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    for (const QObject *owner :
         {static_cast<const QObject *>(owner_.get()), static_cast<const QObject *>(context)})
        QObject::connect(owner, &QObject::destroyed, dialog, [dialog] { delete dialog; });
    dialog->open();
    dialog->raise();
    // The program has no other window in front: without this the question would open behind the user's work.
    dialog->activateWindow();
}

void QtDialogs::alert(const Alert &alert, QObject *context, std::function<void()> done) {
    auto *box = new QMessageBox;
    box->setIcon(alert.style == Alert::Style::warning ? QMessageBox::Warning : QMessageBox::Information);
    box->setText(alert.message);
    box->setInformativeText(alert.informativeText);
    box->addButton(alert.button, QMessageBox::AcceptRole);
    // A file's name may look like markup.
    for (QLabel *label : box->findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    QObject::connect(box, &QDialog::finished, context, [context, done = std::move(done)] {
        if (done)
            QMetaObject::invokeMethod(context, done, Qt::QueuedConnection);
    });
    show(box, context);
}

void QtDialogs::askForSavePath(const FileQuestion &question, QObject *context, PathAnswer done) {
    QFileDialog *dialog = makeFileDialog(question);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->selectFile(question.proposedName);
    ask(dialog, context, std::move(done));
}

void QtDialogs::askForOpenPath(const FileQuestion &question, QObject *context, PathAnswer done) {
    QFileDialog *dialog = makeFileDialog(question);
    dialog->setFileMode(QFileDialog::ExistingFile);
    ask(dialog, context, std::move(done));
}

void QtDialogs::ask(QFileDialog *dialog, QObject *context, PathAnswer done) {
    QObject::connect(
        dialog, &QDialog::finished, context, [context, dialog, done = std::move(done)](int result) {
            QMetaObject::invokeMethod(
                context, [done, path = chosenPath(*dialog, result)] { done(path); }, Qt::QueuedConnection);
        });
    show(dialog, context);
}

}  // namespace pimloft
