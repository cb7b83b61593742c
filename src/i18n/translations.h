// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QTranslator>

namespace pimloft {

/// The program's texts in the user's language, where there is a catalogue for it; else they stay English. So
/// do the texts of Qt's own dialogs. While it exists it holds for the whole application. Main thread, with
/// the application in place.
class Translations {
public:
    explicit Translations(const QLocale &locale);
    ~Translations();
    Translations(const Translations &) = delete;
    Translations &operator=(const Translations &) = delete;

    /// The way in which this user reads.
    static Qt::LayoutDirection direction(const QLocale &locale);

private:
    QTranslator toolkit_;
    QTranslator program_;
};

}  // namespace pimloft
