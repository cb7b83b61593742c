// SPDX-License-Identifier: MIT
#pragma once

#include "long_language.h"
#include "page_session.h"

#include "i18n/translations.h"

#include <QImage>

#include <gtest/gtest.h>

#include <optional>

namespace pimloft::test {

/// A way in which the user may have the program look.
struct Look {
    const char *name;
    bool dark = false;
    bool mirrored = false;
    bool longTexts = false;
    bool trusted = true;
    bool highContrast = false;
    bool german = false;
};
std::vector<Look> looks();
std::string lookName(const testing::TestParamInfo<Look> &info);

/// The program in one look on a real screen.
class Pictures : public testing::TestWithParam<Look> {
protected:
    Pictures();
    ~Pictures() override;

    /// Waits until the window has drawn nothing new for so many milliseconds: every motion is at its end.
    static void waitForRest(QQuickWindow *window, int milliseconds);
    /// Waits until the window is drawn and still, keeps the picture in the build folder and answers it.
    static QImage picture(QQuickWindow *window, const QString &name);

    PageSession session;

private:
    LongLanguage language_;
    std::optional<Translations> german_;
};

/// How many different colours a picture has, up to a hundred.
qsizetype colours(const QImage &image);

}  // namespace pimloft::test
