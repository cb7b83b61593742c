// SPDX-License-Identifier: MIT
#include "ui/quick_view_host.h"

#include "ui/page_view.h"
#include "ui/quick_view_window.h"

#include <QFile>
#include <QQuickItem>

namespace pimloft {

namespace {

/// Keeps the engine for as long as it exists.
class PanelContent final : public PageView {
public:
    PanelContent(QuickEngine &engine, const Page &page) : PageView(engine, page), engineUse_(engine.use()) {
        setColor(Qt::transparent);
        // Only the end of the program comes to that.
        connect(&engine, &QuickEngine::viewsHaveToGo, this, [this] {
            delete rootObject();
            setSource({});
        });
    }

private:
    const std::shared_ptr<void> engineUse_;
};

}  // namespace

QuickViewHost::QuickViewHost(DisplayService &displays, Theme &theme, const QuickEngine::Patience &patience)
    : displays_(displays), theme_(theme), engine_(patience) {
}

bool QuickViewHost::offers(const Page &page) const {
    return page.source.scheme() == QLatin1String("qrc") &&
           QFile::exists(QLatin1Char(':') + page.source.path());
}

std::unique_ptr<ViewWindow> QuickViewHost::makeWindow(const WindowDescription &description) {
    return std::make_unique<QuickViewWindow>(description, engine_, displays_, theme_);
}

std::unique_ptr<QWindow> QuickViewHost::makePanelContent(const Page &page) {
    return std::make_unique<PanelContent>(engine_, page);
}

}  // namespace pimloft
