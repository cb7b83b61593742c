// SPDX-License-Identifier: MIT
#include "platform/preferences/mac_preferences.h"

#include "platform/mac/cf_text.h"
#include "platform/preferences/cf_value.h"

#include <utility>

namespace pimloft {

MacPreferences::~MacPreferences() {
    synchronize();
}

void MacPreferences::registerDefaults(const QVariantMap &defaults) {
    defaults_.insert(defaults);
}

QVariant MacPreferences::object(const QString &key) const {
    const CfRef stored(CFPreferencesCopyAppValue(cfText(key).get(), kCFPreferencesCurrentApplication));
    const QVariant value = qtValue(stored.get());
    return value.isValid() ? value : defaults_.value(key);
}

void MacPreferences::set(const QString &key, const QVariant &value) {
    CFPreferencesSetAppValue(cfText(key).get(), cfValue(value).get(), kCFPreferencesCurrentApplication);
    if (std::exchange(isDirty_, true))
        return;
    QMetaObject::invokeMethod(
        &calls_, [this] { synchronize(); }, Qt::QueuedConnection);
}

void MacPreferences::synchronize() {
    if (std::exchange(isDirty_, false))
        CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

}  // namespace pimloft
