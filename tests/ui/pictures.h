// SPDX-License-Identifier: MIT
#pragma once

#include "page_session.h"

#include <QImage>
#include <QTranslator>

#include <gtest/gtest.h>

namespace pimloft::test {

/// A way in which the user may have the program look.
struct Look {
    const char *name;
    bool dark = false;
    bool mirrored = false;
    bool longTexts = false;
    bool trusted = true;
};
std::vector<Look> looks();
std::string lookName(const testing::TestParamInfo<Look> &info);

/// A language in which everything takes half as much room again.
class LongLanguage final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *comment, int n) const override;
};

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
};

/// How many different colours a picture has, up to a hundred.
qsizetype colours(const QImage &image);

}  // namespace pimloft::test
