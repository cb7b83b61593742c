// SPDX-License-Identifier: MIT
// Looks for texts that are cut short or lie on something else, on every page, in every language.
#include "every_page.h"
#include "long_language.h"
#include "page_session.h"

#include "i18n/translations.h"

#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>

namespace pimloft {
namespace {

enum class Language { english, german, longest };

struct Setting {
    const char *name;
    Language language;
    bool mirrored = false;

    friend void PrintTo(const Setting &setting, std::ostream *out) { *out << setting.name; }
};

/// What a page shows in one place, as a user sees it.
struct Shown {
    QQuickItem *item;
    QRectF area;  ///< in the window
    QRectF seen;  ///< the part of it that is not scrolled out of sight
    QString text;
};

bool isText(const QQuickItem *item) {
    return item->inherits("QQuickText") && !item->property("text").toString().isEmpty();
}

/// What is pressed, dragged or typed into; rows that are pressed as a whole stand behind their texts.
bool isReachedControl(const QQuickItem *item) {
    return item->inherits("QQuickSlider") || item->inherits("QQuickSpinBox") ||
           item->inherits("QQuickTextField") || (item->inherits("QQuickButton") && item->activeFocusOnTab());
}

QRectF painted(const QQuickItem *item) {
    QRectF area(0, 0, item->width(), item->height());
    if (isText(item)) {
        const double width = item->property("contentWidth").toDouble();
        const int alignment = item->property("effectiveHorizontalAlignment").toInt();
        const double left = item->property("leftPadding").toDouble();
        const double right = item->property("rightPadding").toDouble();
        const double room = item->width() - left - right;
        const double free = alignment == Qt::AlignRight     ? room - width
                            : alignment == Qt::AlignHCenter ? (room - width) / 2
                                                            : 0;
        const double height = item->property("contentHeight").toDouble();
        area = {left + free, (item->height() - height) / 2, width, height};
        const double top = item->property("topPadding").toDouble();
        const double bottom = item->property("bottomPadding").toDouble();
        area.moveTop(top + (item->height() - top - bottom - height) / 2);
    }
    return item->mapRectToScene(area);
}

/// `clip` is what of the window is seen here.
void collect(QQuickItem *item, QRectF clip, std::vector<Shown> &list) {
    if (!item->isVisible() || item->opacity() == 0)
        return;
    if (item->clip())
        clip &= item->mapRectToScene(item->boundingRect());
    const bool control = isReachedControl(item);
    if (control || isText(item))
        list.push_back({item, painted(item), painted(item) & clip, item->property("text").toString()});
    if (const auto *indicator = item->property("indicator").value<QQuickItem *>())
        list.push_back(
            {item, painted(indicator), painted(indicator) & clip, item->property("text").toString()});
    if (control)
        return;  // what is in it belongs to it
    for (QQuickItem *child : item->childItems())
        collect(child, clip, list);
}

std::string nameOf(const Shown &shown) {
    return shown.text.isEmpty() ? shown.item->metaObject()->className() : shown.text.toStdString();
}

class Layout : public testing::TestWithParam<Setting> {
protected:
    Layout() {
        qApp->setLayoutDirection(GetParam().mirrored ? Qt::RightToLeft : Qt::LeftToRight);
        if (GetParam().language == Language::german)
            german_.emplace(QLocale(QStringLiteral("de_DE")));
        else if (GetParam().language == Language::longest)
            qApp->installTranslator(&longest_);
    }
    ~Layout() override {
        qApp->removeTranslator(&longest_);
        qApp->setLayoutDirection(Qt::LeftToRight);
    }

    static void expectInPlace(const std::string &page, const std::vector<Shown> &shown, QRectF window) {
        for (const Shown &each : shown) {
            EXPECT_FALSE(each.item->property("truncated").toBool() && !test::EveryPage::isOfUser(each.text))
                << page << " cuts: " << nameOf(each);
            EXPECT_TRUE(each.area.left() >= window.left() && each.area.right() <= window.right())
                << page << " has beyond its edge: " << nameOf(each);
        }
    }
    static void expectApart(const std::string &page, const std::vector<Shown> &shown) {
        for (std::size_t first = 0; first < shown.size(); ++first)
            for (std::size_t second = first + 1; second < shown.size(); ++second) {
                const QRectF both = shown[first].seen & shown[second].seen;
                EXPECT_FALSE(both.width() > 1 && both.height() > 1)
                    << page << " lays over each other: " << nameOf(shown[first]) << " and "
                    << nameOf(shown[second]);
            }
    }

    test::PageSession session;

private:
    std::optional<Translations> german_;
    test::LongLanguage longest_;
};

TEST_P(Layout, leavesEveryTextWholeAndInItsPlace) {
    test::EveryPage pages(session);
    pages.visit([](const std::string &page, QQuickWindow &window) {
        const QRectF area(QPointF(), window.size());
        std::vector<Shown> shown;
        // A sheet above the page hides it.
        collect(test::topmost(window), area, shown);
        EXPECT_GE(shown.size(), 2u) << page;
        expectInPlace(page, shown, area.adjusted(-0.5, 0, 0.5, 0));
        expectApart(page, shown);
    });
}

INSTANTIATE_TEST_SUITE_P(Ui, Layout,
                         testing::Values(Setting{"english", Language::english},
                                         Setting{"german", Language::german},
                                         Setting{"longest", Language::longest},
                                         Setting{"mirrored", Language::english, true},
                                         Setting{"longestMirrored", Language::longest, true}),
                         [](const auto &info) { return std::string(info.param.name); });

}  // namespace
}  // namespace pimloft
