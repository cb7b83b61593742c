// SPDX-License-Identifier: MIT
#include "pictures.h"

#include <QDir>
#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

namespace pimloft::test {

std::vector<Look> looks() {
    return {{.name = "light"},
            {.name = "dark", .dark = true},
            {.name = "untrusted", .trusted = false},
            {.name = "untrusted_dark", .dark = true, .trusted = false},
            {.name = "mirrored", .mirrored = true, .trusted = false},
            {.name = "long", .longTexts = true, .trusted = false},
            {.name = "high_contrast", .highContrast = true},
            {.name = "high_contrast_dark", .dark = true, .highContrast = true},
            {.name = "german", .trusted = false, .german = true}};
}

std::string lookName(const testing::TestParamInfo<Look> &info) {
    return info.param.name;
}

Pictures::Pictures() {
    session.desktop.appearance.setDark(GetParam().dark);
    session.desktop.appearance.setHighContrast(GetParam().highContrast);
    session.desktop.windows.trusted = GetParam().trusted;
    qApp->setLayoutDirection(GetParam().mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    if (GetParam().longTexts)
        qApp->installTranslator(&language_);
    if (GetParam().german)
        german_.emplace(QLocale(QStringLiteral("de_DE")));
}

Pictures::~Pictures() {
    qApp->removeTranslator(&language_);
    qApp->setLayoutDirection(Qt::LeftToRight);
}

void Pictures::waitForRest(QQuickWindow *window, int milliseconds) {
    QSignalSpy frames(window, &QQuickWindow::frameSwapped);
    while (frames.wait(milliseconds)) {
    }
}

QImage Pictures::picture(QQuickWindow *window, const QString &name) {
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    waitForRest(window, 100);
    const QRect frame = window->frameGeometry().adjusted(-12, -12, 12, 12);
    const QImage image =
        window->screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height()).toImage();
    const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/../screenshots/ui"));
    folder.mkpath(QStringLiteral("."));
    const QString scale = window->devicePixelRatio() > 1 ? QStringLiteral("@2x") : QString();
    image.save(folder.filePath(name + QLatin1Char('-') + QLatin1String(GetParam().name) + scale +
                               QStringLiteral(".png")));
    return image;
}

qsizetype colours(const QImage &image) {
    QSet<QRgb> found;
    for (int y = 0; y < image.height() && found.size() < 100; ++y)
        for (int x = 0; x < image.width(); ++x)
            found.insert(image.pixel(x, y));
    return found.size();
}

}  // namespace pimloft::test
