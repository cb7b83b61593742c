// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QVariant>
#include <optional>

namespace pimloft {

/// The user's stored preferences: plain values under names. Main thread.
class PreferencesService {
public:
    virtual ~PreferencesService() = default;

    /// Values that reads answer where nothing is stored. Not stored themselves.
    virtual void registerDefaults(const QVariantMap &defaults) = 0;

    /// The stored value, else the registered one, else an invalid variant.
    virtual QVariant object(const QString &key) const = 0;

    /// Takes effect at once for every reader. When it cannot be stored it holds for this run.
    virtual void set(const QString &key, const QVariant &value) = 0;

    /// Typed reads convert between flags, numbers and texts, and answer the type's empty value where nothing
    /// is stored or it cannot be converted.
    bool flag(const QString &key) const { return object(key).toBool(); }
    qint64 integer(const QString &key) const { return object(key).toLongLong(); }
    double number(const QString &key) const { return object(key).toDouble(); }
    QString text(const QString &key) const { return object(key).toString(); }

    /// Nothing where the key holds no list of texts.
    std::optional<QStringList> texts(const QString &key) const;
};

}  // namespace pimloft
