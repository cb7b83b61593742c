// SPDX-License-Identifier: MIT
#include "ui/widget_look.h"

#include "page_session.h"

#include <QApplication>
#include <QMessageBox>
#include <QStyle>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

TEST(WidgetLook, dressesWindowsThatAreOpenInTheThemeAndFollowsIt) {
    test::PageSession session;
    const WidgetLook look(session.theme());
    QMessageBox alert;
    alert.setText(QStringLiteral("Key Remapping Disabled"));
    const auto color = [&alert](QPalette::ColorRole role) {
        QCoreApplication::sendPostedEvents();
        return alert.palette().color(role).name().toStdString();
    };
    EXPECT_EQ(color(QPalette::Window), ThemeColors::light().window.name().toStdString());

    session.desktop.appearance.setDark(true);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), ThemeColors::dark().window);
    EXPECT_EQ(color(QPalette::Window), ThemeColors::dark().window.name().toStdString());
    EXPECT_EQ(color(QPalette::WindowText), ThemeColors::dark().text.name().toStdString());

    session.desktop.appearance.setHighContrast(true);
    EXPECT_EQ(color(QPalette::Window), ThemeColors::darkHighContrast().window.name().toStdString());
}

TEST(WidgetLook, usesTheTypeOfThePages) {
    test::PageSession session;
    const WidgetLook look(session.theme());
    EXPECT_EQ(QApplication::font().pixelSize(), session.theme().body().pixelSize());
    EXPECT_EQ(QApplication::font().families(), session.theme().body().families());
}

TEST(WidgetLook, showsWhatCannotBeUsed) {
    const QPalette palette = WidgetLook::palette(ThemeColors::light());
    EXPECT_NE(palette.color(QPalette::Disabled, QPalette::ButtonText),
              palette.color(QPalette::Active, QPalette::ButtonText));
}

}  // namespace
}  // namespace pimloft
