// SPDX-License-Identifier: MIT
#include "platform/workspace/window_icon.h"

#include <QColor>
#include <QImage>

#include <gtest/gtest.h>

#include <vector>

namespace pimloft {
namespace {

using Property = std::vector<std::uint32_t>;

void append(Property &property, std::uint32_t side, std::uint32_t colour) {
    property.insert(property.end(), {side, side});
    property.insert(property.end(), std::size_t(side) * side, colour);
}

std::string sizes(const QIcon &icon) {
    QStringList result;
    for (const QSize &size : icon.availableSizes())
        result.append(QStringLiteral("%1x%2").arg(size.width()).arg(size.height()));
    return result.join(QStringLiteral(" ")).toStdString();
}

TEST(WindowIcon, hasEveryImageThatTheWindowCarries) {
    Property property;
    append(property, 16, 0xffff0000);
    append(property, 32, 0x800000ff);
    const QIcon icon = windowIcon(property);
    EXPECT_EQ(sizes(icon), "16x16 32x32");
    EXPECT_EQ(icon.pixmap(16, 16).toImage().pixelColor(3, 3), QColor(255, 0, 0));
}

TEST(WindowIcon, leavesOutAnImageThatIsCutOff) {
    Property property;
    append(property, 16, 0xffff0000);
    append(property, 32, 0xff00ff00);
    property.pop_back();
    EXPECT_EQ(sizes(windowIcon(property)), "16x16");
}

TEST(WindowIcon, isNullForWhatMakesNoSense) {
    EXPECT_TRUE(windowIcon({}).isNull());
    EXPECT_TRUE(windowIcon(Property{16}).isNull());
    EXPECT_TRUE(windowIcon(Property{16, 16}).isNull());
    EXPECT_TRUE(windowIcon(Property{0, 0, 1, 2, 3}).isNull());
    EXPECT_TRUE(windowIcon(Property{1, 0, 1, 2, 3}).isNull());
    Property tall{1, 1025};
    tall.resize(2 + 1025, 0xff00ff00);
    EXPECT_TRUE(windowIcon(tall).isNull());
    EXPECT_TRUE(windowIcon(Property{0xffffffff, 0xffffffff, 1, 2}).isNull());
    EXPECT_TRUE(windowIcon(Property{0x10000, 0x10000, 1, 2}).isNull());
}

}  // namespace
}  // namespace pimloft
