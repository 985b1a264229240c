#pragma once

#include <Controllers/ListModel.h>

#include <QByteArray>
#include <QHash>
#include <functional>
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

    RecordModel(std::vector<Role> roles, Key key, QObject* parent = nullptr);

    const std::vector<Record>& records() const { return records_; }
    /// Another list: views start at its top.
    void reset(std::vector<Record> records);
    /// The same list some time later: rows that stay keep their place on screen, selection and
    /// focus; differences arrive as removals, moves, insertions and changes.
    void update(std::vector<Record> records);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

  private:
    const std::vector<Role> roles_;
    const Key key_;
    std::vector<Record> records_;
};

}
