// SPDX-License-Identifier: MIT
#include "ui/quick_view_host.h"

#include "ui/quick_view_window.h"

#include <QFile>

namespace pimloft {

QuickViewHost::QuickViewHost(DisplayService &displays, Theme &theme, std::chrono::milliseconds engineIdle)
    : displays_(displays), theme_(theme), engine_(engineIdle) {
}

bool QuickViewHost::offers(const Page &page) const {
    return page.source.scheme() == QLatin1String("qrc") &&
           QFile::exists(QLatin1Char(':') + page.source.path());
}

std::unique_ptr<ViewWindow> QuickViewHost::makeWindow(const WindowDescription &description) {
    return std::make_unique<QuickViewWindow>(description, engine_, displays_, theme_);
}

}  // namespace pimloft
