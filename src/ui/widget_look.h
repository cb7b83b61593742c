// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPalette>

namespace pimloft {

class Theme;
struct ThemeColors;

/// Dresses what Qt's widgets draw in the theme, and follows it: alerts, file dialogs, the tray's menu. Main
/// thread, with a QApplication in place; holds for the whole application.
class WidgetLook : public QObject {
    Q_OBJECT

public:
    explicit WidgetLook(Theme &theme);

    static QPalette palette(const ThemeColors &colors);

private:
    void dress();

    Theme &theme_;
};

}  // namespace pimloft
