// SPDX-License-Identifier: MIT
#include "platform/preferences/json_preferences.h"

#include "base/atomic_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <chrono>

namespace pimloft {

namespace {

constexpr std::chrono::milliseconds restAfterWrite{250};
/// On a disk that is full, or may not be written to, the next try would most likely fail, too.
constexpr std::chrono::seconds restAfterFailure{10};

}  // namespace

JsonPreferences::JsonPreferences(const QString &folder)
    : path_(folder + QStringLiteral("/preferences.json")) {
    read();
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
        if (!isDirty_)
            return;
        flush();
        timer_.start(isDirty_ ? restAfterFailure : restAfterWrite);
    });
    if (auto *application = QCoreApplication::instance())
        QObject::connect(application, &QCoreApplication::aboutToQuit, &timer_, [this] { flush(); });
}

JsonPreferences::~JsonPreferences() {
    flush();
}

void JsonPreferences::read() {
    QFile file(path_);
    if (!QFileInfo::exists(path_))
        return;
    const bool isOpen = QFileInfo(path_).isFile() && file.open(QIODevice::ReadOnly);
    const auto document = isOpen ? parsePreferences(file.readAll()) : std::nullopt;
    if (document)
        document_ = *document;
    isDamaged_ = !document;
}

void JsonPreferences::registerDefaults(const QVariantMap &defaults) {
    defaults_.insert(defaults);
}

QVariant JsonPreferences::object(const QString &key) const {
    const auto stored = document_.values.find(key);
    return stored != document_.values.end() ? *stored : defaults_.value(key);
}

void JsonPreferences::set(const QString &key, const QVariant &value) {
    // As a whole number is read back, so that its type does not depend on whether it was read or set.
    const QVariant plain = value.typeId() == QMetaType::Int ? QVariant(value.toLongLong()) : value;
    const QVariant before = document_.values.value(key);
    if (before.isValid() && before == plain && before.typeId() == plain.typeId())
        return;
    document_.foreign.remove(key);
    if (plain.isValid())
        document_.values[key] = plain;
    else
        document_.values.remove(key);
    isDirty_ = true;
    if (!timer_.isActive())
        timer_.start(0);
    else if (timer_.remainingTimeAsDuration() > restAfterWrite)
        timer_.start(restAfterWrite);
}

void JsonPreferences::flush() {
    if (!isDirty_ || !setDamagedFileAside())
        return;
    isDirty_ = writeAtomically(path_, encodePreferences(document_)).has_value();
}

/// The user may want to repair it. False when it cannot be moved, and so must not be written over.
bool JsonPreferences::setDamagedFileAside() {
    if (!isDamaged_)
        return true;
    QString aside = path_ + QStringLiteral(".corrupt");
    for (int number = 2; QFileInfo::exists(aside); ++number)
        aside = path_ + QStringLiteral(".corrupt-%1").arg(number);
    if (QFileInfo::exists(path_) && !QFile::rename(path_, aside))
        return false;
    isDamaged_ = false;
    return true;
}

}  // namespace pimloft
