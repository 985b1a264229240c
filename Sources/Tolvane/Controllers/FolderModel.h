#pragma once

#include <ArborviewKit/SelectionModel.h>
#include <ScanKit/FileNode.h>

#include <Controllers/ListModel.h>
#include <Controllers/Ui.h>

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

/// The children of the folder on screen, sorted and filtered, with their ticks. What the scan
/// folded away is no row but one honest sentence.
class FolderModel final : public tolvane::ListModel {
    Q_OBJECT
    PUBLISHED(FolderModel, tolvane::Ui::SortKey, sortKey)
    PUBLISHED(FolderModel, bool, isDescending)
    PUBLISHED(FolderModel, QString, filter)
    /// "1,204 smaller items, 56.3 MB"; empty when every item has a row.
    PUBLISHED(FolderModel, QString, hiddenText)
    /// The folded items' share of the folder.
    PUBLISHED(FolderModel, double, hiddenShare)
    /// Whether the folder holds nothing at all.
    PUBLISHED(FolderModel, bool, isEmpty)

  public:
    /// Every role is ready text unless something else is said.
    enum Role {
        NodeID = Qt::UserRole,
        Name,
        /// A name of the icon provider.
        IconName,
        /// Boolean.
        IsDirectory,
        SizeText,
        /// Of the folder's size, 0 to 1.
        Share,
        /// "12.3 %"
        ShareText,
        /// "1,204 items"; empty for a file.
        ItemsText,
        /// "1,204"; empty for a file.
        ItemCountText,
        ModifiedText,
        PathText,
        /// A `Ui::Tick`.
        Tick,
        /// Boolean.
        IsPurgeable,
        /// All of it in one sentence, for screen readers.
        AccessibleText
    };

    /// `selection` must outlive this and hold the tree of the folders shown.
    explicit FolderModel(const SelectionModel& selection);

    /// Another folder, or the same one after a scan: views start at its top. The folder is the last
    /// of `path`, before it those it lies in. The filter is taken off when it is another one.
    void show(const std::vector<FileNode>& path);
    void clear();
    /// Ticks may have changed; the rows stay.
    void refreshTicks();
    /// Of the rows, in their order.
    std::vector<Identifier> ids() const;

    /// A second call with the same key turns the order round.
    Q_INVOKABLE void sortBy(tolvane::Ui::SortKey key);
    /// Keeps the rows whose name holds `text`, case ignored.
    Q_INVOKABLE void setFilter(const QString& text);
    /// The row of this item; -1 when it has none.
    Q_INVOKABLE int rowOf(const QString& nodeID) const;
    Q_INVOKABLE QString nodeIDAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

  private:
    struct Row {
        std::uint32_t child = 0;
        Bytes size = 0;
        /// Everything below a folder.
        std::int64_t items = 0;
    };

    const FileNode& node(const Row& row) const { return children()[row.child]; }
    const std::vector<FileNode>& children() const;
    void measure();
    void arrange();
    void sortRows();
    void publishHidden();
    bool isWithinTicked() const;
    Ui::Tick tick(const FileNode& node) const;
    double share(Bytes size) const;
    QString accessibleText(const Row& row) const;
    QVariant value(const Row& row, int role) const;

    const SelectionModel& selection_;
    std::vector<FileNode> path_;
    Bytes total_ = 0;
    /// Of every child.
    std::vector<Row> all_;
    /// Those on screen, in their order.
    std::vector<Row> rows_;
    bool isWithinTicked_ = false;
};

}
