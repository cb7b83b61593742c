// SPDX-License-Identifier: MIT
#include "every_page.h"

#include "history_session.h"

#include "app/onboarding.h"
#include "app/whats_new.h"

#include "keymapper/key_mapper_module.h"
#include "keymapper/key_mapper_settings.h"
#include "keymapper/key_mapping_document.h"
#include "keymapper/key_mapping_store.h"
#include "quickvolume/quick_volume_module.h"
#include "ui/general_settings.h"
#include "ui/popover_controller.h"
#include "ui/settings_window.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace pimloft::test {

namespace {

const QStringList ofUser = {QStringLiteral("Speakers"), QStringLiteral("Headphones"),
                            QStringLiteral("Spotify"),  QStringLiteral("Firefox"),
                            QStringLiteral("Notes"),    QStringLiteral("A line of text")};

QRectF anchor() {
    const QSizeF screen = QGuiApplication::primaryScreen()->size();
    return {screen.width() - 100, screen.height() - 24, 22, 22};
}

/// A sheet has something to press; a tooltip only says something, and hides nothing.
bool hasButtons(const QQuickItem *layer) {
    for (const QQuickItem *child : layer->childItems())
        if (child->inherits("QQuickAbstractButton") || hasButtons(child))
            return true;
    return false;
}

}  // namespace

QQuickItem *topmost(QQuickWindow &window) {
    const QList<QQuickItem *> layers = window.contentItem()->childItems();
    for (QQuickItem *layer : layers)
        if (layer->inherits("QQuickOverlay") && layer->isVisible() && hasButtons(layer))
            return layer;
    return window.contentItem();
}

void settle(QQuickWindow &window) {
    waitForPage(window);
    // Places follow sizes and sizes follow places, frame by frame.
    for (int frame = 0; frame < 3; ++frame) {
        QCoreApplication::processEvents();
        window.grabWindow();
    }
}

EveryPage::EveryPage(PageSession &session)
    : session_(session), panels_(QGuiApplication::primaryScreen()->size().height()) {
    // So that what fades is there at once.
    session.desktop.appearance.setReducesMotion(true);
    session.desktop.windows.trusted = false;
    session.accessibility().refresh();
    session.desktop.audio.add({.name = ofUser[0], .volume = 0.66F});
    session.desktop.audio.add({.name = ofUser[1], .volume = 0.25F});
    for (const auto &[process, bundleId, name] :
         {std::tuple(7, "com.spotify.client", ofUser[2]), std::tuple(8, "org.mozilla.firefox", ofUser[3])})
        session.desktop.workspace.running.push_back(
            {.name = name, .bundleId = QString::fromLatin1(bundleId), .processId = ProcessId(process)});
    session.appState().quickVolume()->activate();
    KeyMappingStore::shared().importMappings(
        encode(ExportedMappings{{}, {{.fromKeyCode = KeyCode{105}, .toKeyCode = KeyCode{65535}}}}));
    QCoreApplication::processEvents();
}

EveryPage::~EveryPage() = default;

bool EveryPage::isOfUser(const QString &text) {
    return ofUser.contains(text);
}

void EveryPage::visit(const Visitor &visitor) {
    visitFirstRun(visitor);
    visitNews(visitor);
    visitSettings(visitor);
    visitPopover(visitor);
    visitHistory(visitor);
}

void EveryPage::visitFirstRun(const Visitor &visitor) {
    Onboarding flow(session_.appState(), session_.settings(), session_.accessibility(),
                    session_.desktop.workspace, [] {});
    const auto window = session_.views().makeWindow(
        {.title = QStringLiteral("Welcome"),
         .contentSize = {560, 480},
         .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/OnboardingView.qml")),
                  {{QStringLiteral("flow"), QVariant::fromValue(&flow)}}}});
    window->present();
    for (const char *step : {"welcome", "modules", "permission", "ready"}) {
        settle(*shownWindow());
        visitor(step, *shownWindow());
        if (flow.currentStep() == Onboarding::Permission)
            flow.permission()->skip();
        else
            flow.next();
    }
    window->close();
}

void EveryPage::visitNews(const Visitor &visitor) {
    WhatsNew news(QStringLiteral("1.0.0"), WhatsNew::currentFeatures(), session_.desktop.preferences, [] {});
    const auto window =
        session_.views().makeWindow({.title = QStringLiteral("What's New"),
                                     .contentSize = {420, 400},
                                     .page = {QUrl(QStringLiteral("qrc:/qt/qml/Pimloft/Ui/WhatsNewView.qml")),
                                              {{QStringLiteral("news"), QVariant::fromValue(&news)}}}});
    window->present();
    settle(*shownWindow());
    visitor("news", *shownWindow());
    window->close();
}

void EveryPage::visitSettings(const Visitor &visitor) {
    GeneralSettings general(session_.settings(), session_.accessibility(), session_.updates(),
                            session_.desktop.workspace);
    SettingsWindow settings(session_.views(), general.page(), session_.appState().allModules());
    settings.open();
    QQuickWindow *window = shownWindow();
    for (int index = 0; index < settings.tabs().size(); ++index) {
        settings.select(index);
        const std::string name = "settings " + std::to_string(index);
        for (const int width : {760, window->minimumWidth()}) {
            window->resize(width, 560);
            settle(*window);
            visitor(name + " at " + std::to_string(width), *window);
        }
        window->resize(760, 560);
    }
    settings.select(int(session_.appState().allModules().indexOf(session_.appState().keyMapper())) + 1);
    visitSheet(visitor);
    settings.close();
}

void EveryPage::visitSheet(const Visitor &visitor) {
    KeyMapperSettings &page = session_.appState().keyMapper()->pageModel();
    settle(*shownWindow());
    page.setPreset(0, true);
    // It comes with a fade.
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.showConfirmation(); }));
    settle(*shownWindow());
    visitor("confirmation", *shownWindow());
    page.revertPreset();
}

void EveryPage::visitPopover(const Visitor &visitor) {
    PopoverController popover(session_.appState(), session_.accessibility(), session_.views().engine(),
                              panels_, session_.desktop.displays);
    popover.open(anchor());
    QQuickWindow *window = shownWindow();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    settle(*window);
    visitor("panel", *window);
    type(window, Qt::Key_Backtab);
    type(window, Qt::Key_Backtab);
    type(window, Qt::Key_Space);
    settle(*window);
    visitor("panel with mixer", *window);
    popover.close();
}

void EveryPage::visitHistory(const Visitor &visitor) {
    HistorySession history(session_, panels_);
    history.controller.show();
    settle(*shownWindow());
    visitor("empty history", *shownWindow());
    history.addText("A line of text", "Notes", 330, true);
    history.addText("A line of text 2", "Notes", 3 * 86400);
    settle(*shownWindow());
    visitor("history", *shownWindow());
    history.controller.hide();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !history.controller.isOpen(); }));
}

}  // namespace pimloft::test
