// SPDX-License-Identifier: MIT
#include "platform/preferences/fake_preferences.h"

#include <gtest/gtest.h>

#include <array>

namespace pimloft {

void FakePreferences::registerDefaults(const QVariantMap &defaults) {
    registered.insert(defaults);
    log_.line(QStringLiteral("register %1 defaults").arg(defaults.size()));
}

void FakePreferences::set(const QString &key, const QVariant &value) {
    static constexpr std::array storable{QMetaType::Bool,   QMetaType::Int,     QMetaType::LongLong,
                                         QMetaType::Double, QMetaType::QString, QMetaType::QStringList};
    EXPECT_NE(std::find(storable.begin(), storable.end(), value.typeId()), storable.end())
        << "a preference of type " << value.typeName();
    stored[key] = value;
    const QString text = value.typeId() == QMetaType::QStringList
                             ? value.toStringList().join(QStringLiteral(", "))
                             : value.toString();
    log_.line(QStringLiteral("set %1 = %2").arg(key, text));
}

}  // namespace pimloft
