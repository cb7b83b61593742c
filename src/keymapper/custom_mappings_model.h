// SPDX-License-Identifier: MIT
#pragma once

#include "keymapper/key_mapping.h"

#include <QAbstractListModel>

namespace pimloft {

class KeyMappingStore;

/// The user's own rules as the rows of a list, which keep their place when one of them goes. Main thread.
class CustomMappingsModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    explicit CustomMappingsModel(KeyMappingStore &store);

    /// "mappingId", a text; "fromKeyCode" and "toKeyCode", numbers.
    enum Role { mappingIdRole = Qt::UserRole, fromKeyCodeRole, toKeyCodeRole };
    QHash<int, QByteArray> roleNames() const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    int count() const { return int(rows_.size()); }

signals:
    void countChanged();

private:
    void follow();

    KeyMappingStore &store_;
    KeyMappings rows_;
};

}  // namespace pimloft
