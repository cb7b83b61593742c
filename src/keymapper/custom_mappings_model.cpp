// SPDX-License-Identifier: MIT
#include "keymapper/custom_mappings_model.h"

#include "keymapper/key_mapping_store.h"

#include <algorithm>

namespace pimloft {

CustomMappingsModel::CustomMappingsModel(KeyMappingStore &store)
    : store_(store), rows_(store.customMappings()) {
    connect(&store, &KeyMappingStore::customMappingsChanged, this, &CustomMappingsModel::follow);
}

QHash<int, QByteArray> CustomMappingsModel::roleNames() const {
    return {{mappingIdRole, "mappingId"}, {fromKeyCodeRole, "fromKeyCode"}, {toKeyCodeRole, "toKeyCode"}};
}

int CustomMappingsModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant CustomMappingsModel::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const KeyMapping &mapping = rows_[std::size_t(index.row())];
    switch (role) {
    case mappingIdRole:
        return mapping.id.toString();
    case fromKeyCodeRole:
        return std::uint16_t(mapping.fromKeyCode);
    case toKeyCodeRole:
        return std::uint16_t(mapping.toKeyCode);
    default:
        return {};
    }
}

void CustomMappingsModel::follow() {
    const KeyMappings &now = store_.customMappings();
    const auto first = std::ranges::mismatch(rows_, now).in1 - rows_.begin();
    const bool oneIsGone = now.size() + 1 == rows_.size() &&
                           std::equal(rows_.begin() + first + 1, rows_.end(), now.begin() + first, now.end());
    if (oneIsGone) {
        beginRemoveRows({}, int(first), int(first));
        rows_.erase(rows_.begin() + first);
        endRemoveRows();
    } else {
        beginResetModel();
        rows_ = now;
        endResetModel();
    }
    emit countChanged();
}

}  // namespace pimloft
