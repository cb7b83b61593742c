// SPDX-License-Identifier: MIT
#include "i18n/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace pimloft {

namespace {

/// The languages of a user's wish list, the best first, up to the one that the sources are written in.
QStringList languagesBeforeEnglish(const QLocale &locale) {
    QStringList languages;
    for (const QString &language : locale.uiLanguages()) {
        const QLocale::Language named = QLocale(language).language();
        if (named == QLocale::English || named == QLocale::C)
            break;
        languages << language;
    }
    return languages;
}

bool load(QTranslator &translator, const QString &language, const QString &catalogue, const QString &folder) {
    return translator.load(catalogue + QString(language).replace(QLatin1Char('-'), QLatin1Char('_')), folder);
}

}  // namespace

Translations::Translations(const QLocale &locale) {
    for (const QString &language : languagesBeforeEnglish(locale)) {
        if (!load(program_, language, QStringLiteral("pimloft_"), QStringLiteral(":/i18n")))
            continue;
        // Never in a language that the rest is not in.
        if (load(toolkit_, language, QStringLiteral("qtbase_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(&toolkit_);
        QCoreApplication::installTranslator(&program_);
        return;
    }
}

Translations::~Translations() {
    QCoreApplication::removeTranslator(&program_);
    QCoreApplication::removeTranslator(&toolkit_);
}

Qt::LayoutDirection Translations::direction(const QLocale &locale) {
    return QLocale(locale.uiLanguages().value(0)).textDirection();
}

}  // namespace pimloft
