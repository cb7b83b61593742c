// SPDX-License-Identifier: MIT
#include "platform/appearance/xsettings.h"

#include <QDataStream>
#include <QIODevice>

#include <gtest/gtest.h>

namespace pimloft {
namespace {

/// Settings as a desktop publishes them, in either order of bytes.
class Publisher {
public:
    explicit Publisher(QDataStream::ByteOrder order, quint32 count) : stream_(&bytes_, QIODevice::WriteOnly) {
        stream_.setByteOrder(order);
        stream_ << quint8(order == QDataStream::BigEndian) << quint8(0) << quint16(0) << quint32(7) << count;
    }
    Publisher &integer(const QByteArray &name, qint32 value) {
        begin(0, name);
        stream_ << value;
        return *this;
    }
    Publisher &text(const QByteArray &name, const QByteArray &value) {
        begin(1, name);
        stream_ << quint32(value.size());
        padded(value);
        return *this;
    }
    Publisher &colour(const QByteArray &name) {
        begin(2, name);
        stream_ << quint64(0);
        return *this;
    }
    QByteArray bytes() const { return bytes_; }

private:
    void begin(quint8 type, const QByteArray &name) {
        stream_ << type << quint8(0) << quint16(name.size());
        padded(name);
        stream_ << quint32(1);
    }
    void padded(const QByteArray &value) {
        stream_.writeRawData(value.constData(), int(value.size()));
        for (qsizetype length = value.size(); length % 4; ++length)
            stream_ << quint8(0);
    }

    QByteArray bytes_;
    QDataStream stream_;
};

QByteArray sample(QDataStream::ByteOrder order) {
    return Publisher(order, 4)
        .integer("Net/DoubleClickTime", -3)
        .colour("Net/Background")
        .text("Net/ThemeName", "Adwaita-dark")
        .text("Net/IconThemeName", "gnome")
        .bytes();
}

std::string summary(const QVariantMap &settings) {
    QStringList lines;
    for (auto entry = settings.begin(); entry != settings.end(); ++entry)
        lines.append(entry.key() + QLatin1Char('=') + entry.value().toString());
    return lines.join(QStringLiteral(", ")).toStdString();
}

constexpr const char *wholeSample =
    "Net/DoubleClickTime=-3, Net/IconThemeName=gnome, Net/ThemeName=Adwaita-dark";

TEST(XSettings, areReadInEitherOrderOfBytes) {
    EXPECT_EQ(summary(parseXSettings(sample(QDataStream::LittleEndian))), wholeSample);
    EXPECT_EQ(summary(parseXSettings(sample(QDataStream::BigEndian))), wholeSample);
}

TEST(XSettings, areReadUpToWhereTheyAreCutOff) {
    const QByteArray whole = sample(QDataStream::LittleEndian);
    qsizetype before = 0;
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const qsizetype count = parseXSettings(whole.left(length)).size();
        EXPECT_GE(count, before) << length;
        EXPECT_LE(count, 3) << length;
        before = count;
    }
    EXPECT_EQ(summary(parseXSettings(whole.left(50))), "Net/DoubleClickTime=-3");
}

TEST(XSettings, areReadUpToWhatMakesNoSense) {
    EXPECT_EQ(summary(parseXSettings({})), "");
    EXPECT_EQ(summary(parseXSettings(QByteArray(1000, '\xff'))), "");
    EXPECT_EQ(summary(parseXSettings(QByteArray(1000, '\0'))), "");
    QByteArray manyPromised = Publisher(QDataStream::LittleEndian, 0xffffffff).integer("a", 1).bytes();
    EXPECT_EQ(summary(parseXSettings(manyPromised)), "a=1");
    QByteArray longPromised = Publisher(QDataStream::LittleEndian, 2).integer("a", 1).text("b", "c").bytes();
    longPromised[longPromised.size() - 5] = '\x7f';
    EXPECT_EQ(summary(parseXSettings(longPromised)), "a=1");
}

struct Theme {
    const char *name;
    bool isDark;
    bool isHighContrast = false;

    friend void PrintTo(const Theme &theme, std::ostream *out) { *out << theme.name; }
};

class ThemeCalled : public testing::TestWithParam<Theme> {};

TEST_P(ThemeCalled, isDarkOrLight) {
    EXPECT_EQ(prefersDark({{QStringLiteral("Net/ThemeName"), QLatin1String(GetParam().name)}}),
              GetParam().isDark);
}

TEST_P(ThemeCalled, isOfHighContrastOrNot) {
    EXPECT_EQ(prefersHighContrast({{QStringLiteral("Net/ThemeName"), QLatin1String(GetParam().name)}}),
              GetParam().isHighContrast);
}

INSTANTIATE_TEST_SUITE_P(
    XSettings, ThemeCalled,
    testing::Values(Theme{"", false}, Theme{"Adwaita", false}, Theme{"Adwaita-dark", true},
                    Theme{"Adwaita:dark", true}, Theme{"Greybird-Dark", true}, Theme{"Arc", false},
                    Theme{"Arc-Darker", false}, Theme{"Arc-Dark-solid", true},
                    Theme{"Mint-Y-Dark-Aqua", true}, Theme{"Breeze", false}, Theme{"BreezeDark", true},
                    Theme{"Breeze Dark", true}, Theme{"HighContrast", false, true},
                    Theme{"HighContrastInverse", true, true}, Theme{"ContrastHigh", false, true},
                    Theme{"Yaru-hc", false, true}, Theme{"Orchis", false}, Theme{"Darkness", false},
                    Theme{"Dark", true}, Theme{"Adwaita-inverse", true}));

TEST(XSettings, mayAskForDarkWhateverTheTheme) {
    EXPECT_TRUE(prefersDark({{QStringLiteral("Net/ThemeName"), QStringLiteral("Adwaita")},
                             {QStringLiteral("Gtk/ApplicationPreferDarkTheme"), 1}}));
    EXPECT_FALSE(prefersDark({{QStringLiteral("Gtk/ApplicationPreferDarkTheme"), 0}}));
}

TEST(XSettings, maySwitchAnimationsOff) {
    const QString animations = QStringLiteral("Gtk/EnableAnimations");
    EXPECT_TRUE(prefersReducedMotion({{animations, 0}}));
    EXPECT_FALSE(prefersReducedMotion({{animations, 1}}));
    EXPECT_FALSE(prefersReducedMotion({}));
}

}  // namespace
}  // namespace pimloft
