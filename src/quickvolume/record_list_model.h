// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QVariant>

#include <vector>

namespace pimloft {

/// A list of records for views, each known by a key. When the list is replaced, only the rows that differ
/// change: a view keeps what stays, with the slider that is being held in it. Main thread.
class RecordListModel : public QAbstractListModel {
    Q_OBJECT
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    struct Row {
        qint64 key;
        QVariant record;
    };
    /// Keys are different from each other.
    void replace(const std::vector<Row> &rows);

    int count() const { return int(rows_.size()); }
    int rowCount(const QModelIndex &parent) const override { return parent.isValid() ? 0 : count(); }
    QVariant data(const QModelIndex &index, int role) const override;
    /// One role: `record`.
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    void removeMissing(const std::vector<Row> &rows);
    void put(int position, const Row &row);

    std::vector<Row> rows_;
};

}  // namespace pimloft
