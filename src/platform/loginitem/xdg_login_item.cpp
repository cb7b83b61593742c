// SPDX-License-Identifier: MIT
// Before Qt, which makes a macro of a name that GIO uses.
#include <gio/gio.h>

#include "platform/loginitem/xdg_login_item.h"

#include "base/atomic_file.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <memory>

namespace pimloft {

namespace {

struct FreeKeyFile {
    void operator()(GKeyFile *file) const { g_key_file_unref(file); }
};
using KeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

constexpr const char *group = G_KEY_FILE_DESKTOP_GROUP;

void setText(const KeyFile &file, const char *key, const QString &text) {
    g_key_file_set_string(file.get(), group, key, text.toUtf8().constData());
}

QByteArray bytes(const KeyFile &file) {
    gsize length = 0;
    gchar *text = g_key_file_to_data(file.get(), &length, nullptr);
    const QByteArray result(text, qsizetype(length));
    g_free(text);
    return result;
}

}  // namespace

QString execLine(const QString &program) {
    QString text = program;
    text.replace(u'%', QStringLiteral("%%"));
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z0-9_@%+=:,./-]+$"));
    if (plain.match(text).hasMatch())
        return text;
    static const QRegularExpression special(QStringLiteral("([\"`$\\\\])"));
    text.replace(special, QStringLiteral("\\\\1"));
    return u'"' + text + u'"';
}

XdgLoginItem::XdgLoginItem(const QString &autostart, QString program)
    : path_(autostart + QStringLiteral("/pimloft.desktop")), program_(std::move(program)) {
}

std::optional<QString> XdgLoginItem::registerMainApplication() {
    const KeyFile file(g_key_file_new());
    const auto keepAll = GKeyFileFlags(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    // A missing or damaged file is made anew.
    g_key_file_load_from_file(file.get(), QFile::encodeName(path_).constData(), keepAll, nullptr);
    setText(file, "Type", QStringLiteral("Application"));
    setText(file, "Name", QStringLiteral("Pimloft"));
    setText(file, "Comment", QStringLiteral("Window snapping, clipboard history and more, from the tray"));
    setText(file, "Exec", execLine(program_));
    // Once the program is removed, the desktop skips the entry silently.
    setText(file, "TryExec", program_);
    setText(file, "Icon", QStringLiteral("pimloft"));
    g_key_file_set_boolean(file.get(), group, "Terminal", false);
    // Session settings switch an entry off by one of these.
    g_key_file_remove_key(file.get(), group, "Hidden", nullptr);
    g_key_file_set_boolean(file.get(), group, "X-GNOME-Autostart-enabled", true);
    return writeAtomically(path_, bytes(file));
}

std::optional<QString> XdgLoginItem::unregisterMainApplication() {
    QFile file(path_);
    if (file.remove() || !(file.exists() || QFileInfo(file).isSymLink()))
        return std::nullopt;
    return file.errorString();
}

}  // namespace pimloft
