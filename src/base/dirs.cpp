// SPDX-License-Identifier: MIT
#include "base/dirs.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcessEnvironment>

namespace pimloft {

namespace {

/// A base directory; relative values are to be ignored, as the base-directory rules say.
QString baseDirectory(const QProcessEnvironment &environment, const QString &variable,
                      const QString &fallback) {
    const QString value = environment.value(variable);
    return QDir::isAbsolutePath(value) ? value : fallback;
}

}  // namespace

Dirs Dirs::fromEnvironment(const QProcessEnvironment &environment) {
    const QString home = environment.value(QStringLiteral("HOME"), QDir::homePath());
    const QString config =
        baseDirectory(environment, QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/.config"));
    const QString data =
        baseDirectory(environment, QStringLiteral("XDG_DATA_HOME"), home + QStringLiteral("/.local/share"));
    const QString runtime = baseDirectory(environment, QStringLiteral("XDG_RUNTIME_DIR"),
                                          data + QStringLiteral("/Pimloft/runtime"));
    return {.preferences = config + QStringLiteral("/Pimloft"),
            .support = data + QStringLiteral("/Pimloft"),
            .autostart = config + QStringLiteral("/autostart"),
            .runtime = runtime,
            .help = QDir(QCoreApplication::applicationDirPath())
                        .absoluteFilePath(QStringLiteral("../share/pimloft/help")),
            .keyGuard = QDir(QCoreApplication::applicationDirPath())
                            .absoluteFilePath(QStringLiteral("../libexec/pimloft-keyguard"))};
}

}  // namespace pimloft
