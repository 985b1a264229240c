#pragma once

#include <Controllers/DuplicateIndex.h>
#include <Controllers/DuplicateSelection.h>
#include <Controllers/ListModel.h>
#include <Controllers/Ui.h>

#include <QString>
#include <memory>
#include <optional>
#include <vector>

namespace tolvane {

/// The groups of duplicates as one list: a header row for each group and below it a row for each
/// file. Rows are worked out when they are asked for, so that a long list costs nothing to open.
class DuplicatesModel final : public tolvane::ListModel {
    Q_OBJECT
    /// Only groups with a file whose path holds this text are shown, each whole.
    PUBLISHED(DuplicatesModel, QString, filter)
    /// "12 of 340 groups, 30 of 1,204 files"; empty while nothing is filtered out.
    PUBLISHED(DuplicatesModel, QString, countsText)
    /// "5 ticked files are not shown"; empty when all are.
    PUBLISHED(DuplicatesModel, QString, hiddenTicksText)

  public:
    /// Every role is ready text unless something else is said. A role that a row of its kind does
    /// not have is empty or false.
    enum Role {
        /// Boolean: a header, else a file.
        IsHeader = Qt::UserRole,
        /// Of a header: "3 copies"; of a file: its last path component.
        Name,
        /// "1.2 MB", of each file of the group.
        SizeText,
        /// Of a header: "2.4 MB can be freed"; names of one file count once.
        WasteText,
        /// Of a header: "2 of 3 ticked"; empty while none is.
        TickedText,
        /// A `Ui::Tick`; of a header `Partial` when some are, `All` when every copy is ticked.
        Tick,
        /// Boolean, of a header: whether its files have no rows.
        IsCollapsed,
        /// Of a file: the folder it lies in, seen from the folder that was looked through; "" when
        /// it lies there.
        FolderText,
        PathText,
        ModifiedText,
        IconName,
        /// Boolean, of a file: the first of its group that is not ticked, which so stays.
        IsKept,
        /// "same file, frees nothing": a further name (hard link) of a file of this group.
        LinkText,
        /// "changed or could not be read whole" while it was compared: it may be no duplicate.
        UncertainText,
        /// All of it in one sentence, for screen readers.
        AccessibleText
    };

    /// `selection` must outlive this and hold the index that is shown.
    explicit DuplicatesModel(const DuplicateSelection& selection);

    /// Another result, without filter; null for none. Views start at its top.
    void show(std::shared_ptr<const DuplicateIndex> index);
    /// The tick of one file changed, and with it perhaps which file of its group stays.
    void refreshTick(DuplicateIndex::Position file, std::optional<DuplicateIndex::Position> kept);
    /// Ticks of this group changed.
    void refreshTicks(std::size_t group);
    /// Any ticks changed.
    void refreshTicks();

    /// The group that a row is of or lies in; absent when there is no such row.
    std::optional<std::size_t> groupAt(int row) const;
    /// Absent for a header.
    std::optional<DuplicateIndex::Position> fileAt(int row) const;

    /// Case ignored.
    Q_INVOKABLE void setFilter(const QString& text);
    /// Whether the row is a header; false where there is no such row.
    Q_INVOKABLE bool isHeaderAt(int row) const;
    Q_INVOKABLE bool isCollapsedAt(int row) const;
    /// Hides the files of the group that a row is of, or shows them again.
    Q_INVOKABLE void toggleCollapsed(int row);
    Q_INVOKABLE void collapseAll();
    Q_INVOKABLE void expandAll();
    /// The row of the next header below `row`, of the one above it; -1 when there is none.
    Q_INVOKABLE int headerBelow(int row) const;
    Q_INVOKABLE int headerAbove(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

  private:
    /// A group on screen.
    struct Section {
        std::uint32_t group = 0;
        /// Of the header.
        int row = 0;
        bool isCollapsed = false;
    };

    bool hasRow(int row) const;
    int filesOf(const Section& section) const;
    int rowsOf(const Section& section) const;
    /// The one that `row`, which exists, belongs to.
    std::size_t sectionAt(int row) const;
    void arrange();
    /// Gives each section from `first` on its row.
    void place(std::size_t first);
    void setAllCollapsed(bool isCollapsed);
    void publishCounts();
    void publishHiddenTicks();
    void refreshRows(int first, int last);
    /// Null when the filter hides it.
    const Section* sectionOf(std::size_t group) const;
    QVariant headerValue(const Section& section, int role) const;
    QVariant fileValue(DuplicateIndex::Position file, std::size_t group, int role) const;
    QString headerSentence(const Section& section) const;
    QString fileSentence(DuplicateIndex::Position file, std::size_t group) const;
    QString folderText(const FileURL& file) const;
    QString tickedText(std::size_t group) const;
    Ui::Tick tick(std::size_t group) const;

    const DuplicateSelection& selection_;
    std::shared_ptr<const DuplicateIndex> index_;
    std::vector<Section> sections_;
    int rows_ = 0;
};

}
