// SPDX-License-Identifier: MIT
#include "platform/dialogs/qt_dialogs.h"

#include <QFileDialog>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QMimeDatabase>
#include <QStyle>

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

/// What the program has to say comes under its own sign, a warning under the one that warns everywhere.
void setIcon(QMessageBox &box, Alert::Style style) {
    box.setIcon(style == Alert::Style::warning ? QMessageBox::Warning : QMessageBox::Information);
    const int side = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &box);
    const QIcon ours = QGuiApplication::windowIcon();
    if (style == Alert::Style::informational && !ours.isNull())
        box.setIconPixmap(ours.pixmap(QSize(side, side), box.devicePixelRatio()));
}

/// The message stands out from what explains it, which is not squeezed into a column as narrow as it.
void layOutTexts(QMessageBox &box) {
    if (auto *message = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))) {
        QFont font = message->font();
        font.setWeight(QFont::DemiBold);
        message->setFont(font);
    }
    constexpr int charactersInALine = 48;
    auto *explanation = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"));
    if (explanation && explanation->text().size() > charactersInALine)
        explanation->setMinimumWidth(explanation->fontMetrics().averageCharWidth() * charactersInALine);
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
    box->setWindowTitle(QStringLiteral("Pimloft"));
    setIcon(*box, alert.style);
    box->setText(alert.message);
    box->setInformativeText(alert.informativeText);
    box->addButton(alert.button, QMessageBox::AcceptRole);
    // A file's name may look like markup.
    for (QLabel *label : box->findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
    layOutTexts(*box);
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
