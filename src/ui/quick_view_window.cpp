// SPDX-License-Identifier: MIT
#include "ui/quick_view_window.h"

#include "platform/displays/displays.h"
#include "ui/kit/theme.h"
#include "ui/page_view.h"
#include "ui/quick_engine.h"
#include "ui/screen_space.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QScreen>

namespace pimloft {

namespace {

/// What a window manager's frame may take around the content, with some air.
constexpr QSize frameAllowance(24, 64);

/// The most that Qt lets a window grow to.
constexpr QSize unlimited((1 << 24) - 1, (1 << 24) - 1);

Qt::WindowFlags flagsOf(const WindowDescription &description) {
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (description.isFloating)
        flags |= Qt::WindowStaysOnTopHint;
    return flags;
}

}  // namespace

QuickViewWindow::QuickViewWindow(const WindowDescription &description, QuickEngine &engine,
                                 DisplayService &displays, Theme &theme)
    : description_(description), engine_(engine), displays_(displays), theme_(theme) {
    connect(&engine_, &QuickEngine::viewsHaveToGo, this, [this] { view_.reset(); });
}

QuickViewWindow::~QuickViewWindow() = default;

void QuickViewWindow::makeView() {
    view_ = std::make_unique<PageView>(engine_, description_.page);
    PageView *view = view_.get();
    view->setTitle(description_.title);
    view->setFlags(flagsOf(description_));
    view->setColor(theme_.colors().window);
    connect(&theme_, &Theme::changed, view, [this, view] { view->setColor(theme_.colors().window); });
    connect(view, &PageView::closeKeyPressed, this, &QuickViewWindow::close);
    connect(view, &QWindow::visibleChanged, this,
            [this](bool visible) { engineUse_ = visible ? engine_.use() : nullptr; });
}

void QuickViewWindow::present() {
    if (!view_)
        makeView();
    if (!view_->isVisible()) {
        centre();
        view_->show();
    }
    view_->raise();
    view_->requestActivate();
}

void QuickViewWindow::close() {
    if (view_)
        view_->close();
}

void QuickViewWindow::centre() {
    const auto display = displays_.mainDisplay();
    const auto place = display ? ScreenSpace::current().toQt(display->visibleFrame.center()) : std::nullopt;
    if (!place)
        return view_->resize(description_.contentSize);
    QScreen *screen = QGuiApplication::screens().value(qsizetype(place->screen));
    const QSize room = screen->availableSize() - frameAllowance;
    const QSize size = description_.contentSize.boundedTo(room);
    const QQuickItem *page = view_->rootObject();
    const QSize smallest = page ? QSizeF(page->implicitWidth(), page->implicitHeight()).toSize() : QSize();
    view_->setMinimumSize(description_.isResizable ? smallest.boundedTo(size) : size);
    view_->setMaximumSize(description_.isResizable ? unlimited : size);
    view_->setScreen(screen);
    view_->resize(size);
    view_->setFramePosition((place->position - QPointF(size.width(), size.height()) / 2).toPoint());
}

}  // namespace pimloft
