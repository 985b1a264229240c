#pragma once

#include <Controllers/ListModel.h>
#include <Controllers/RowChanges.h>

#include <QByteArray>
#include <QHash>
#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace tolvane {

/// A list of records whose roles are functions of a record. For lists up to a few thousand rows.
template <class Record>
class RecordModel final : public ListModel {
  public:
    struct Role {
        QByteArray name;
        std::function<QVariant(const Record&)> value;
    };
    /// What tells a record from all others, whatever else of it changes.
    using Key = std::function<QString(const Record&)>;
    /// How it arrives that another record stands where one was, while no other row moves: as a
    /// removal and an insertion, or as a change of all that the row says. The latter costs a view
    /// much less, but leaves its current row on the other record.
    enum class Replacement { another, change };

    RecordModel(std::vector<Role> roles, Key key, QObject* parent = nullptr)
        : ListModel(parent)
        , roles_(std::move(roles))
        , key_(std::move(key)) {}

    const std::vector<Record>& records() const { return records_; }
    /// Null when there is no such row.
    const Record* record(int row) const {
        return row < 0 || row >= rowCount() ? nullptr : &records_[static_cast<std::size_t>(row)];
    }

    /// Another list: views start at its top.
    void reset(std::vector<Record> records) {
        beginResetModel();
        records_ = std::move(records);
        endResetModel();
        publishCount();
    }

    /// The same list some time later: rows that stay keep their place on screen, selection and
    /// focus; differences arrive as removals, moves, insertions and changes. A list in which a key
    /// stands twice is taken as another one.
    void update(std::vector<Record> records, Replacement replacement = Replacement::another) {
        const std::optional<std::vector<RowChange>> changes =
            rowChanges(keys(records_), keys(records));
        if (!changes) {
            reset(std::move(records));
            return;
        }
        if (replacement == Replacement::change && isReplacement(*changes)) {
            exchange(*changes, records);
        } else {
            for (const RowChange& change : *changes) {
                apply(change, records);
            }
        }
        refresh(std::move(records));
        publishCount();
    }

    /// The very same rows, of each of which anything but the key may be new. Compares nothing, and
    /// so is fast for any number of rows.
    void replace(std::vector<Record> records) {
        records_ = std::move(records);
        if (!records_.empty()) {
            Q_EMIT dataChanged(index(0), index(rowCount() - 1));
        }
    }

    /// `row` must exist.
    void remove(int row) {
        beginRemoveRows({}, row, row);
        records_.erase(at(row));
        endRemoveRows();
        publishCount();
    }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(records_.size());
    }

    QVariant data(const QModelIndex& index, int role) const override {
        const int column = role - Qt::UserRole;
        if (!checkIndex(index, CheckIndexOption::IndexIsValid) || column < 0 ||
            column >= static_cast<int>(roles_.size())) {
            return {};
        }
        return valueOf(records_[static_cast<std::size_t>(index.row())], column);
    }

    QHash<int, QByteArray> roleNames() const override {
        QHash<int, QByteArray> names;
        for (const Role& role : roles_) {
            names.insert(Qt::UserRole + static_cast<int>(names.size()), role.name);
        }
        return names;
    }

  private:
    QVariant valueOf(const Record& record, int column) const {
        return roles_[static_cast<std::size_t>(column)].value(record);
    }

    std::vector<QString> keys(const std::vector<Record>& records) const {
        std::vector<QString> keys;
        keys.reserve(records.size());
        std::transform(records.begin(), records.end(), std::back_inserter(keys), key_);
        return keys;
    }

    void apply(const RowChange& change, const std::vector<Record>& records) {
        switch (change.kind) {
        case RowChange::Kind::removal:
            beginRemoveRows({}, change.first, change.last);
            records_.erase(at(change.first), at(change.last + 1));
            endRemoveRows();
            break;
        case RowChange::Kind::move:
            move(change.first, change.destination);
            break;
        case RowChange::Kind::insertion:
            beginInsertRows({}, change.first, change.last);
            records_.insert(at(change.first), records.begin() + change.first,
                            records.begin() + change.last + 1);
            endInsertRows();
            break;
        }
    }

    void exchange(const std::vector<RowChange>& changes, const std::vector<Record>& records) {
        for (const RowChange& change : changes) {
            if (change.kind == RowChange::Kind::insertion) {
                std::copy(records.begin() + change.first, records.begin() + change.last + 1,
                          at(change.first));
                Q_EMIT dataChanged(index(change.first), index(change.last));
            }
        }
    }

    void move(int from, int to) {
        // Qt names the row in front of which the moved one comes to stand, before it has left.
        beginMoveRows({}, from, from, {}, from < to ? to + 1 : to);
        if (from < to) {
            std::rotate(at(from), at(from + 1), at(to + 1));
        } else {
            std::rotate(at(to), at(from), at(from + 1));
        }
        endMoveRows();
    }

    /// Takes over what rows that stand in their places have new.
    void refresh(std::vector<Record> records) {
        for (int row = 0; row < rowCount(); ++row) {
            Record& shown = *at(row);
            Record& fresh = records[static_cast<std::size_t>(row)];
            const QList<int> roles = differences(shown, fresh);
            shown = std::move(fresh);
            if (!roles.empty()) {
                Q_EMIT dataChanged(index(row), index(row), roles);
            }
        }
    }

    QList<int> differences(const Record& a, const Record& b) const {
        if constexpr (requires { a == b; }) {
            if (a == b) {
                return {};
            }
        }
        QList<int> roles;
        for (int column = 0; column < static_cast<int>(roles_.size()); ++column) {
            if (valueOf(a, column) != valueOf(b, column)) {
                roles.append(Qt::UserRole + column);
            }
        }
        return roles;
    }

    typename std::vector<Record>::iterator at(int row) { return records_.begin() + row; }

    const std::vector<Role> roles_;
    const Key key_;
    std::vector<Record> records_;
};

}
