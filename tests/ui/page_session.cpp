// SPDX-License-Identifier: MIT
#include "page_session.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft::test {

namespace {

QStringList warnings;
QtMessageHandler previousHandler = nullptr;

void keepWarning(QtMsgType type, const QMessageLogContext &context, const QString &message) {
    if (type == QtDebugMsg || type == QtInfoMsg)
        return previousHandler(type, context, message);
    // The platform of the unit tests has no stack of windows, and says so each time.
    if (message == QLatin1String("This plugin does not support raise()"))
        return;
    warnings << message;
}

QString roleName(QAccessible::Role role) {
    switch (role) {
    case QAccessible::Button:
        return QStringLiteral("button");
    case QAccessible::CheckBox:
        return QStringLiteral("switch");
    case QAccessible::EditableText:
        return QStringLiteral("text field");
    case QAccessible::Grouping:
        return QStringLiteral("group");
    case QAccessible::Heading:
        return QStringLiteral("heading");
    case QAccessible::List:
        return QStringLiteral("list");
    case QAccessible::ListItem:
        return QStringLiteral("list item");
    case QAccessible::PageTab:
        return QStringLiteral("tab");
    case QAccessible::PageTabList:
        return QStringLiteral("tabs");
    case QAccessible::RadioButton:
        return QStringLiteral("radio button");
    case QAccessible::Slider:
        return QStringLiteral("slider");
    case QAccessible::SpinBox:
        return QStringLiteral("stepper");
    case QAccessible::StaticText:
        return QStringLiteral("text");
    case QAccessible::Window:
        return QStringLiteral("window");
    default:
        return QString::number(int(role));
    }
}

void collect(QAccessibleInterface *interface, QStringList &lines) {
    if (!interface || interface->state().invisible)
        return;
    const QString name = interface->text(QAccessible::Name);
    if (!name.isEmpty()) {
        QString line = roleName(interface->role()) + QStringLiteral(": ") + name;
        if (interface->state().checkable)
            line += interface->state().checked ? QStringLiteral(" [on]") : QStringLiteral(" [off]");
        if (interface->state().selected)
            line += QStringLiteral(" [selected]");
        lines << line;
    }
    for (int index = 0; index < interface->childCount(); ++index)
        collect(interface->child(index), lines);
}

QQuickItem *find(QAccessibleInterface *interface, const QString &name) {
    if (!interface || interface->state().invisible)
        return nullptr;
    if (interface->text(QAccessible::Name) == name)
        return qobject_cast<QQuickItem *>(interface->object());
    for (int index = 0; index < interface->childCount(); ++index)
        if (QQuickItem *found = find(interface->child(index), name))
            return found;
    return nullptr;
}

void collectTexts(QQuickItem *item, QStringList &list) {
    if (!item->isVisible())
        return;
    if (item->inherits("QQuickText") && !item->property("text").toString().isEmpty())
        list << item->property("text").toString();
    for (QQuickItem *child : item->childItems())
        collectTexts(child, list);
}

}  // namespace

PageSession::PageSession() : process(desktop.platform(), clock, dirs()) {
    QAccessible::setActive(true);
    warnings.clear();
    previousHandler = qInstallMessageHandler(keepWarning);
    desktop.displays.add(DisplayId(1), QRectF(QPointF(), QGuiApplication::primaryScreen()->size()));
}

PageSession::~PageSession() {
    views_.reset();
    qInstallMessageHandler(previousHandler);
    EXPECT_EQ(takeWarnings().join(QLatin1Char('\n')).toStdString(), "");
}

Dirs PageSession::dirs() const {
    Dirs dirs;
    dirs.support = home_.path();
    return dirs;
}

QuickViewHost &PageSession::views() {
    if (!views_)
        views_ = std::make_unique<QuickViewHost>(desktop.displays, theme());
    return *views_;
}

void PageSession::endViews() {
    views_.reset();
}

QStringList PageSession::takeWarnings() {
    return std::exchange(warnings, {});
}

void waitForPage(QQuickWindow &window) {
    const auto *page = window.contentItem()->findChild<QQuickItem *>(QStringLiteral("page"));
    EXPECT_TRUE(!page || QTest::qWaitFor([page] { return page->property("isMade").toBool(); }));
}

QQuickWindow *shownWindow() {
    QQuickWindow *newest = nullptr;
    for (QWindow *window : QGuiApplication::topLevelWindows())
        if (auto *quick = qobject_cast<QQuickWindow *>(window); quick && quick->isVisible())
            newest = quick;
    EXPECT_TRUE(newest) << "no window is on screen";
    if (newest)
        waitForPage(*newest);
    return newest;
}

QStringList spoken(QQuickWindow *window) {
    QStringList lines;
    collect(QAccessible::queryAccessibleInterface(window), lines);
    return lines;
}

QQuickItem *named(QQuickWindow *window, const QString &name) {
    return find(QAccessible::queryAccessibleInterface(window), name);
}

QStringList texts(QQuickItem *root) {
    QStringList list;
    collectTexts(root, list);
    return list;
}

void type(QWindow *window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window, key, modifiers);
}

void click(QQuickItem *item) {
    const QPointF middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
    QTest::mouseClick(item->window(), Qt::LeftButton, Qt::NoModifier, middle.toPoint());
}

}  // namespace pimloft::test
