// SPDX-License-Identifier: MIT
#include "quickvolume/record_list_model.h"

#include <algorithm>

namespace pimloft {

namespace {

auto findKey(const auto &rows, qint64 key, std::ptrdiff_t from = 0) {
    return std::find_if(rows.begin() + from, rows.end(), [key](const auto &row) { return row.key == key; });
}

}  // namespace

void RecordListModel::replace(const std::vector<Row> &rows) {
    const int before = count();
    removeMissing(rows);
    for (int position = 0; position < int(rows.size()); ++position)
        put(position, rows[std::size_t(position)]);
    if (count() != before)
        emit countChanged();
}

void RecordListModel::removeMissing(const std::vector<Row> &rows) {
    for (int position = count() - 1; position >= 0; --position) {
        if (findKey(rows, rows_[std::size_t(position)].key) != rows.end())
            continue;
        beginRemoveRows({}, position, position);
        rows_.erase(rows_.begin() + position);
        endRemoveRows();
    }
}

void RecordListModel::put(int position, const Row &row) {
    const auto found = findKey(rows_, row.key, position);
    const int current = int(found - rows_.begin());
    if (found == rows_.end()) {
        beginInsertRows({}, position, position);
        rows_.insert(rows_.begin() + position, row);
        endInsertRows();
        return;
    }
    if (current != position) {
        beginMoveRows({}, current, current, {}, position);
        std::rotate(rows_.begin() + position, rows_.begin() + current, rows_.begin() + current + 1);
        endMoveRows();
    }
    QVariant &record = rows_[std::size_t(position)].record;
    if (record == row.record)
        return;
    record = row.record;
    emit dataChanged(index(position), index(position));
}

QVariant RecordListModel::data(const QModelIndex &index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::UserRole)
        return {};
    return rows_[std::size_t(index.row())].record;
}

QHash<int, QByteArray> RecordListModel::roleNames() const {
    return {{Qt::UserRole, QByteArrayLiteral("record")}};
}

}  // namespace pimloft
