#include <HostKit/Collation.h>
#include <Services/ByteFormat.h>
#include <Services/NotCounted.h>

#include <Controllers/FolderModel.h>
#include <Controllers/ItemText.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

#include <algorithm>
#include <numeric>

namespace tolvane {
namespace {

QString percentText(double share) {
    constexpr double least = 0.001;
    if (share > 0 && share < least) {
        return QStringLiteral("< 0.1 %");
    }
    return QString::number(share * 100, 'f', 1) + QStringLiteral(" %");
}

/// Orders by `key`, which is computed once for each row; equal ones keep their order.
template <class Row, class Key>
void sortByKey(std::vector<Row>& rows, bool isDescending, Key key) {
    using Value = decltype(key(rows.front()));
    std::vector<std::pair<Value, Row>> keyed;
    keyed.reserve(rows.size());
    for (const Row& row : rows) {
        keyed.emplace_back(key(row), row);
    }
    std::stable_sort(keyed.begin(), keyed.end(), [isDescending](const auto& a, const auto& b) {
        return isDescending ? b.first < a.first : a.first < b.first;
    });
    std::transform(keyed.begin(), keyed.end(), rows.begin(),
                   [](const auto& pair) { return pair.second; });
}

}

FolderModel::FolderModel(const SelectionModel& selection)
    : sortKey_(Ui::SortKey::Size)
    , isDescending_(true)
    , selection_(selection) {}

void FolderModel::show(const std::vector<FileNode>& path) {
    const bool isSameFolder =
        !path.empty() && !path_.empty() && path.back().url() == path_.back().url();
    beginResetModel();
    path_ = path;
    if (!isSameFolder) {
        filter_ = QString();
    }
    measure();
    arrange();
    isWithinTicked_ = isWithinTicked();
    endResetModel();
    publishCount();
    publishHidden();
}

void FolderModel::clear() {
    show({});
}

void FolderModel::refreshTicks() {
    isWithinTicked_ = isWithinTicked();
    if (!rows_.empty()) {
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Tick, AccessibleText});
    }
}

std::vector<Identifier> FolderModel::ids() const {
    std::vector<Identifier> ids;
    ids.reserve(rows_.size());
    for (const Row& row : rows_) {
        ids.push_back(node(row).id());
    }
    return ids;
}

void FolderModel::sortBy(Ui::SortKey key) {
    const bool isSame = key == sortKey_.value();
    beginResetModel();
    isDescending_ = isSame ? !isDescending_.value() : key != Ui::SortKey::Name;
    sortKey_ = key;
    sortRows();
    endResetModel();
}

void FolderModel::setFilter(const QString& text) {
    if (text == filter_.value()) {
        return;
    }
    beginResetModel();
    filter_ = text;
    arrange();
    endResetModel();
    publishCount();
}

int FolderModel::rowOf(const QString& nodeID) const {
    const std::string id = nodeID.toStdString();
    const auto found = std::find_if(rows_.begin(), rows_.end(),
                                    [&](const Row& row) { return text(node(row).id()) == id; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

QString FolderModel::nodeIDAt(int row) const {
    return data(index(row), NodeID).toString();
}

int FolderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    return value(rows_[static_cast<std::size_t>(index.row())], role);
}

QHash<int, QByteArray> FolderModel::roleNames() const {
    return {{NodeID, "nodeID"},
            {Name, "name"},
            {IconName, "iconName"},
            {IsDirectory, "isDirectory"},
            {SizeText, "sizeText"},
            {Share, "share"},
            {ShareText, "shareText"},
            {ItemsText, "itemsText"},
            {ItemCountText, "itemCountText"},
            {ModifiedText, "modifiedText"},
            {PathText, "pathText"},
            {Tick, "tick"},
            {IsPurgeable, "isPurgeable"},
            {AccessibleText, "accessibleText"}};
}

const std::vector<FileNode>& FolderModel::children() const {
    return path_.back().children();
}

void FolderModel::measure() {
    all_.clear();
    total_ = 0;
    if (path_.empty()) {
        return;
    }
    total_ = ownTotals(path_.back()).totalAllocatedSize;
    all_.reserve(children().size());
    for (std::uint32_t i = 0; i < children().size(); ++i) {
        const NodeTotals below = totals(children()[i]);
        const std::int64_t items =
            children()[i].isDirectory() ? sum(below.fileCount, below.directoryCount) - 1 : 0;
        all_.push_back({i, below.totalAllocatedSize, items});
        add(total_, below.totalAllocatedSize);
    }
}

void FolderModel::arrange() {
    const QString wanted = filter_.value();
    rows_ = all_;
    if (!wanted.isEmpty()) {
        std::erase_if(rows_, [&](const Row& row) {
            return !shownText(node(row).name()).contains(wanted, Qt::CaseInsensitive);
        });
    }
    sortRows();
}

void FolderModel::sortRows() {
    if (rows_.empty()) {
        return;
    }
    const auto by = [this](auto key) { sortByKey(rows_, isDescending_, std::move(key)); };
    switch (sortKey_.value()) {
    case Ui::SortKey::Name:
        return by([this, order = Collation()](const Row& row) {
            return order.sortKey(node(row).name());
        });
    case Ui::SortKey::Size:
        return by([](const Row& row) { return row.size; });
    case Ui::SortKey::Items:
        return by([](const Row& row) { return row.items; });
    case Ui::SortKey::Modified:
        return by([this](const Row& row) {
            return node(row).modified().value_or(std::numeric_limits<Date>::lowest());
        });
    }
}

void FolderModel::publishHidden() {
    const bool hasFolder = !path_.empty();
    const bool hasHidden =
        hasFolder && (path_.back().hiddenFiles() > 0 || path_.back().hiddenDirectories() > 0);
    const Bytes hidden = hasHidden ? path_.back().hiddenBytes() : 0;
    hiddenText_ = hasHidden
                      ? shownText(itemsNotKept(path_.back()) + ", " + ByteFormat::text(hidden))
                      : QString();
    hiddenShare_ = share(hidden);
    isEmpty_ = hasFolder && !hasHidden && all_.empty();
}

bool FolderModel::isWithinTicked() const {
    // The scanned folder itself is never removed, so that being ticked it takes nothing with it.
    const auto first = path_.empty() ? path_.begin() : path_.begin() + 1;
    return std::any_of(first, path_.end(), [this](const FileNode& folder) {
        return selection_.isSelected(folder.id());
    });
}

Ui::Tick FolderModel::tick(const FileNode& node) const {
    if (isWithinTicked_) {
        return Ui::Tick::Included;
    }
    switch (selection_.state(node.id())) {
    case SelectionState::all:
        return Ui::Tick::All;
    case SelectionState::partial:
        return Ui::Tick::Partial;
    case SelectionState::none:
        break;
    }
    return Ui::Tick::None;
}

double FolderModel::share(Bytes size) const {
    return total_ > 0 ? static_cast<double>(size) / static_cast<double>(total_) : 0;
}

QString FolderModel::accessibleText(const Row& row) const {
    QStringList parts{shownText(node(row).name()),
                      node(row).isDirectory() ? tr("folder") : tr("file"),
                      value(row, SizeText).toString(), value(row, ShareText).toString()};
    if (tick(node(row)) == Ui::Tick::Included || tick(node(row)) == Ui::Tick::All) {
        parts.append(tr("selected"));
    }
    return parts.join(QStringLiteral(", "));
}

QVariant FolderModel::value(const Row& row, int role) const {
    const FileNode& item = node(row);
    switch (role) {
    case NodeID:
        return QString::fromStdString(text(item.id()));
    case Name:
    case Qt::DisplayRole:
        return shownText(item.name());
    case IconName:
        return iconName(item.kind());
    case IsDirectory:
        return item.isDirectory();
    case SizeText:
        return shownSize(row.size);
    case Share:
        return share(row.size);
    case ShareText:
        return percentText(share(row.size));
    case ItemsText:
        return item.isDirectory() ? shownCount(row.items, "item") : QString();
    case ItemCountText:
        return item.isDirectory() ? shownNumber(row.items) : QString();
    case ModifiedText:
        return dayText(item.modified());
    case PathText:
        return shownPath(item.url());
    case Tick:
        return QVariant::fromValue(tick(item));
    case IsPurgeable:
        return item.isPurgeable();
    case AccessibleText:
        return accessibleText(row);
    default:
        return {};
    }
}

}
