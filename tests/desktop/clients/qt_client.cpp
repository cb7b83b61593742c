// SPDX-License-Identifier: MIT
// An editor with the window manager's title bar. Its title is the first argument; the second, "large", gives
// it a smallest size that no quarter of a test's screen offers, or names the file that holds what was put
// into it: text, with an asterisk behind it when some is bold, or a picture's size.
#include <QApplication>
#include <QImage>
#include <QMimeData>
#include <QSaveFile>
#include <QTextEdit>

namespace {

class Editor : public QTextEdit {
public:
    void keepIn(const QString &file) {
        connect(this, &QTextEdit::textChanged, this, [this, file] { save(file, text()); });
        file_ = file;
    }

protected:
    bool canInsertFromMimeData(const QMimeData *source) const override {
        return source->hasImage() || QTextEdit::canInsertFromMimeData(source);
    }
    void insertFromMimeData(const QMimeData *source) override {
        if (source->hasText() || source->hasHtml() || !source->hasImage()) {
            QTextEdit::insertFromMimeData(source);
            return;
        }
        const QSize size = qvariant_cast<QImage>(source->imageData()).size();
        save(file_, QStringLiteral("%1x%2").arg(size.width()).arg(size.height()));
    }

private:
    QString text() const {
        const bool isBold = toHtml().contains(QLatin1String("font-weight:7"));
        return toPlainText() + (isBold ? QStringLiteral("*") : QString());
    }
    static void save(const QString &file, const QString &content) {
        QSaveFile target(file);
        if (target.open(QIODevice::WriteOnly) && target.write(content.toUtf8()) >= 0)
            target.commit();
    }

    QString file_;
};

}  // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    Editor window;
    window.setWindowTitle(arguments.value(1, QStringLiteral("Qt")));
    window.resize(640, 400);
    if (arguments.value(2) == QLatin1String("large"))
        window.setMinimumSize(900, 700);
    else if (arguments.size() > 2)
        window.keepIn(arguments.at(2));
    window.show();
    return QApplication::exec();
}
