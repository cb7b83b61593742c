// SPDX-License-Identifier: MIT
// Whether every page can be worked without a pointer, and without seeing it.
#include "every_page.h"

#include <QAccessible>
#include <QSet>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

bool isControl(const QQuickItem *item) {
    return item->inherits("QQuickAbstractButton") || item->inherits("QQuickSlider") ||
           item->inherits("QQuickSpinBox") || item->inherits("QQuickTextInput");
}

void collectControls(QQuickItem *item, std::vector<QQuickItem *> &controls) {
    if (!item->isVisible() || !item->isEnabled())
        return;
    if (isControl(item))
        controls.push_back(item);
    for (QQuickItem *child : item->childItems())
        collectControls(child, controls);
}

std::vector<QQuickItem *> controlsOf(QQuickWindow &window) {
    std::vector<QQuickItem *> controls;
    collectControls(test::topmost(window), controls);
    return controls;
}

bool hasRing(const QQuickItem *item) {
    for (const QQuickItem *child : item->childItems())
        if (child->isVisible() &&
            (QByteArray(child->metaObject()->className()).startsWith("FocusRing") || hasRing(child)))
            return true;
    return false;
}

std::string spokenNameOf(QQuickItem *item) {
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(item);
    return interface ? interface->text(QAccessible::Name).toStdString() : std::string();
}

std::string describe(QQuickItem *item) {
    const std::string name = spokenNameOf(item);
    return name.empty() ? item->metaObject()->className() : name;
}

/// The popup of the history takes what is typed for its search.
bool isWorkedByPointer(const std::string &page) {
    return page.find("history") != std::string::npos;
}

TEST(Keyboard, reachesEveryControlOfEveryPageAndShowsWhereItIs) {
    test::PageSession session;
    test::EveryPage pages(session);
    pages.visit([](const std::string &page, QQuickWindow &window) {
        if (isWorkedByPointer(page))
            return;
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window)) << page;
        const auto controls = controlsOf(window);
        EXPECT_FALSE(controls.empty() && page.find("general") != std::string::npos) << page;
        QSet<QQuickItem *> reached;
        for (std::size_t press = 0; press < controls.size() + 3; ++press) {
            test::type(&window, Qt::Key_Tab);
            test::settle(window);
            QQuickItem *item = window.activeFocusItem();
            ASSERT_TRUE(item) << page;
            reached << item;
            EXPECT_TRUE(hasRing(item)) << page << ": no ring around " << describe(item);
            const QRectF area = item->mapRectToScene(item->boundingRect());
            EXPECT_TRUE(area.top() >= -1 && area.bottom() <= window.height() + 1)
                << page << ": out of sight is " << describe(item);
        }
        for (QQuickItem *control : controls)
            EXPECT_TRUE(reached.contains(control)) << page << ": Tab never comes to " << describe(control);
    });
}

TEST(Keyboard, goesBackTheWayItCame) {
    test::PageSession session;
    test::EveryPage pages(session);
    pages.visit([](const std::string &page, QQuickWindow &window) {
        if (isWorkedByPointer(page))
            return;
        window.requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window)) << page;
        test::type(&window, Qt::Key_Tab);
        const QQuickItem *first = window.activeFocusItem();
        test::type(&window, Qt::Key_Tab);
        test::type(&window, Qt::Key_Backtab);
        EXPECT_EQ(window.activeFocusItem(), first) << page;
    });
}

TEST(ScreenReader, isToldTheNameAndTheKindOfEveryControl) {
    test::PageSession session;
    test::EveryPage pages(session);
    pages.visit([](const std::string &page, QQuickWindow &window) {
        for (QQuickItem *control : controlsOf(window)) {
            QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(control);
            ASSERT_TRUE(interface) << page << ": " << control->metaObject()->className();
            EXPECT_NE(interface->text(QAccessible::Name), QString())
                << page << ": " << control->metaObject()->className();
            const QAccessible::Role expected =
                control->inherits("QQuickSlider")        ? QAccessible::Slider
                : control->inherits("QQuickSpinBox")     ? QAccessible::SpinBox
                : control->inherits("QQuickTextInput")   ? QAccessible::EditableText
                : control->inherits("QQuickSwitch")      ? QAccessible::CheckBox
                : control->inherits("QQuickRadioButton") ? QAccessible::RadioButton
                                                         : QAccessible::Button;
            EXPECT_EQ(interface->role(), expected) << page << ": " << describe(control);
        }
    });
}

/// Every interface below one that a screen reader comes to.
void walk(QAccessibleInterface *interface, const std::function<void(QAccessibleInterface *)> &visitor) {
    if (!interface || interface->state().invisible)
        return;
    visitor(interface);
    for (int index = 0; index < interface->childCount(); ++index)
        walk(interface->child(index), visitor);
}

TEST(ScreenReader, isToldEveryText) {
    test::PageSession session;
    test::EveryPage pages(session);
    pages.visit([](const std::string &page, QQuickWindow &window) {
        QStringList said;
        walk(QAccessible::queryAccessibleInterface(&window), [&](QAccessibleInterface *interface) {
            said << interface->text(QAccessible::Name) << interface->text(QAccessible::Description);
        });
        const QString all = said.join(u'\n');
        for (const QString &text : test::texts(test::topmost(window)))
            for (const QString &part : text.split(u'·', Qt::SkipEmptyParts))
                EXPECT_TRUE(all.contains(part.trimmed()))
                    << page << " never says: " << part.trimmed().toStdString();
    });
}

}  // namespace
}  // namespace pimloft
