#include <Controllers/DuplicatesFilter.h>
#include <Controllers/DuplicatesModel.h>
#include <Controllers/DuplicatesTexts.h>

#include <algorithm>
#include <set>
#include <utility>

namespace tolvane {

DuplicatesModel::DuplicatesModel(const DuplicateSelection& selection)
    : selection_(selection) {}

void DuplicatesModel::show(std::shared_ptr<const DuplicateIndex> index) {
    beginResetModel();
    index_ = std::move(index);
    filter_ = QString();
    arrange();
    endResetModel();
    publishCounts();
}

void DuplicatesModel::arrange() {
    const std::size_t groups = index_ ? index_->groups().size() : 0;
    const DuplicatesFilter filter(filter_);
    sections_.clear();
    sections_.reserve(groups);
    for (std::size_t group = 0; group < groups; ++group) {
        if (filter_.value().isEmpty() || filter.accepts(index_->groups()[group])) {
            sections_.push_back({static_cast<std::uint32_t>(group)});
        }
    }
    place(0);
}

void DuplicatesModel::place(std::size_t first) {
    for (std::size_t i = first; i < sections_.size(); ++i) {
        sections_[i].row = i == 0 ? 0 : sections_[i - 1].row + rowsOf(sections_[i - 1]);
    }
    rows_ = sections_.empty() ? 0 : sections_.back().row + rowsOf(sections_.back());
}

int DuplicatesModel::filesOf(const Section& section) const {
    return static_cast<int>(index_->end(section.group) - index_->first(section.group));
}

int DuplicatesModel::rowsOf(const Section& section) const {
    return section.isCollapsed ? 1 : 1 + filesOf(section);
}

std::size_t DuplicatesModel::sectionAt(int row) const {
    const auto after =
        std::upper_bound(sections_.begin(), sections_.end(), row,
                         [](int wanted, const Section& each) { return wanted < each.row; });
    return static_cast<std::size_t>(after - sections_.begin()) - 1;
}

bool DuplicatesModel::hasRow(int row) const {
    return row >= 0 && row < rows_;
}

std::optional<std::size_t> DuplicatesModel::groupAt(int row) const {
    return hasRow(row) ? std::optional<std::size_t>(sections_[sectionAt(row)].group) : std::nullopt;
}

std::optional<DuplicateIndex::Position> DuplicatesModel::fileAt(int row) const {
    if (!hasRow(row)) {
        return std::nullopt;
    }
    const Section& section = sections_[sectionAt(row)];
    return row == section.row ? std::nullopt
                              : std::optional(index_->first(section.group) +
                                              static_cast<std::uint32_t>(row - section.row - 1));
}

bool DuplicatesModel::isHeaderAt(int row) const {
    return hasRow(row) && sections_[sectionAt(row)].row == row;
}

bool DuplicatesModel::isCollapsedAt(int row) const {
    return hasRow(row) && sections_[sectionAt(row)].isCollapsed;
}

const DuplicatesModel::Section* DuplicatesModel::sectionOf(std::size_t group) const {
    const auto section = std::lower_bound(
        sections_.begin(), sections_.end(), group,
        [](const Section& each, std::size_t wanted) { return each.group < wanted; });
    return section != sections_.end() && section->group == group ? &*section : nullptr;
}

void DuplicatesModel::refreshTick(DuplicateIndex::Position file,
                                  std::optional<DuplicateIndex::Position> kept) {
    const std::size_t group = index_->groupOf(file);
    const std::optional<DuplicateIndex::Position> keptNow = selection_.kept(group);
    if (const Section* section = sectionOf(group)) {
        std::set<int> rows{section->row};
        for (const auto& changed : {std::optional(file), kept, keptNow}) {
            if (changed && !section->isCollapsed) {
                rows.insert(section->row + 1 + static_cast<int>(*changed - index_->first(group)));
            }
        }
        for (const int row : rows) {
            refreshRows(row, row);
        }
    }
    publishHiddenTicks();
}

void DuplicatesModel::refreshTicks(std::size_t group) {
    if (const Section* section = sectionOf(group)) {
        refreshRows(section->row, section->row + rowsOf(*section) - 1);
    }
    publishHiddenTicks();
}

void DuplicatesModel::refreshTicks() {
    refreshRows(0, rows_ - 1);
    publishHiddenTicks();
}

void DuplicatesModel::refreshRows(int first, int last) {
    if (first <= last) {
        Q_EMIT dataChanged(index(first), index(last), {TickedText, Tick, IsKept, AccessibleText});
    }
}

void DuplicatesModel::setFilter(const QString& text) {
    if (text == filter_.value()) {
        return;
    }
    beginResetModel();
    filter_ = text;
    arrange();
    endResetModel();
    publishCounts();
}

void DuplicatesModel::toggleCollapsed(int row) {
    if (!hasRow(row)) {
        return;
    }
    const std::size_t at = sectionAt(row);
    Section& section = sections_[at];
    const int first = section.row + 1;
    const int last = section.row + filesOf(section);
    if (section.isCollapsed) {
        beginInsertRows({}, first, last);
        section.isCollapsed = false;
        place(at);
        endInsertRows();
    } else {
        beginRemoveRows({}, first, last);
        section.isCollapsed = true;
        place(at);
        endRemoveRows();
    }
    Q_EMIT dataChanged(index(section.row), index(section.row), {IsCollapsed, AccessibleText});
    publishCount();
}

void DuplicatesModel::collapseAll() {
    setAllCollapsed(true);
}

void DuplicatesModel::expandAll() {
    setAllCollapsed(false);
}

void DuplicatesModel::setAllCollapsed(bool isCollapsed) {
    beginResetModel();
    for (Section& section : sections_) {
        section.isCollapsed = isCollapsed;
    }
    place(0);
    endResetModel();
    publishCount();
}

int DuplicatesModel::headerBelow(int row) const {
    const std::size_t next = hasRow(row) ? sectionAt(row) + 1 : sections_.size();
    return next < sections_.size() ? sections_[next].row : -1;
}

int DuplicatesModel::headerAbove(int row) const {
    return row > 0 && hasRow(row) ? sections_[sectionAt(row - 1)].row : -1;
}

void DuplicatesModel::publishCounts() {
    publishCount();
    std::size_t files = 0;
    for (const Section& section : sections_) {
        files += static_cast<std::size_t>(filesOf(section));
    }
    countsText_ = filter_.value().isEmpty() || !index_
                      ? QString()
                      : DuplicatesTexts::filtered(sections_.size(), files, *index_);
    publishHiddenTicks();
}

void DuplicatesModel::publishHiddenTicks() {
    std::size_t hidden = selection_.count();
    if (filter_.value().isEmpty()) {
        hidden = 0;
    }
    for (auto section = sections_.begin(); hidden > 0 && section != sections_.end(); ++section) {
        hidden -= selection_.countIn(section->group);
    }
    hiddenTicksText_ = DuplicatesTexts::hiddenTicks(hidden);
}

int DuplicatesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

}
