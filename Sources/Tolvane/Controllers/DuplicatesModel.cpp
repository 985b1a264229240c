#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <Controllers/DuplicatesModel.h>
#include <Controllers/ItemText.h>
#include <Controllers/ShownText.h>

#include <QStringList>
#include <algorithm>
#include <set>
#include <utility>

namespace tolvane {
namespace {

QString sizeText(Bytes size) {
    return shownText(ByteFormat::text(size));
}

QString grouped(std::size_t count) {
    return shownText(CountFormat::grouped(static_cast<std::int64_t>(count)));
}

QString counted(std::size_t count, std::string_view noun) {
    return shownText(CountFormat::counted(static_cast<std::int64_t>(count), noun));
}

/// Of at least two.
QString copies(const DuplicateGroup& group) {
    return grouped(group.files.size()) + QStringLiteral(" copies");
}

bool isASCII(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar each) { return each.unicode() < 0x80; });
}

/// Whether a path looks to people as its bytes say, in ASCII.
bool isPlain(const std::string& path) {
    return std::all_of(path.begin(), path.end(),
                       [](char each) { return each >= ' ' && each <= '~'; });
}

char lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Finds a text in paths, case ignored, as people see both.
class PathFilter {
  public:
    explicit PathFilter(const QString& wanted)
        : wanted_(wanted)
        , bytes_(isASCII(wanted.toCaseFolded()) ? wanted.toCaseFolded().toStdString()
                                                : std::string()) {}

    bool accepts(const DuplicateGroup& group) const {
        return std::any_of(group.files.begin(), group.files.end(),
                           [this](const DuplicateFile& file) { return accepts(file.url); });
    }

  private:
    bool accepts(const FileURL& url) const {
        if (bytes_.empty()) {
            return !isPlain(url.path()) && shownPath(url).contains(wanted_, Qt::CaseInsensitive);
        }
        // No byte of another letter's UTF-8 is ASCII, so that texts need not be made of them all.
        const std::string& path = url.path();
        return std::search(path.begin(), path.end(), bytes_.begin(), bytes_.end(),
                           [](char a, char b) { return lower(a) == b; }) != path.end();
    }

    const QString wanted_;
    /// In lower case; empty when bytes do not do.
    const std::string bytes_;
};

}

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
    const PathFilter filter(filter_);
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
    countsText_ =
        filter_.value().isEmpty() || !index_
            ? QString()
            : QStringLiteral("%1 of %2, %3 of %4")
                  .arg(grouped(sections_.size()), counted(index_->groups().size(), "group"),
                       grouped(files), counted(index_->fileCount(), "file"));
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
    hiddenTicksText_ = hidden == 0 ? QString()
                                   : counted(hidden, "ticked file") +
                                         (hidden == 1 ? QStringLiteral(" is not shown")
                                                      : QStringLiteral(" are not shown"));
}

int DuplicatesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QHash<int, QByteArray> DuplicatesModel::roleNames() const {
    return {{IsHeader, "isHeader"},
            {Name, "name"},
            {SizeText, "sizeText"},
            {WasteText, "wasteText"},
            {TickedText, "tickedText"},
            {Tick, "tick"},
            {IsCollapsed, "isCollapsed"},
            {FolderText, "folderText"},
            {PathText, "pathText"},
            {ModifiedText, "modifiedText"},
            {IconName, "iconName"},
            {IsKept, "isKept"},
            {LinkText, "linkText"},
            {UncertainText, "uncertainText"},
            {AccessibleText, "accessibleText"}};
}

QVariant DuplicatesModel::data(const QModelIndex& index, int role) const {
    const bool isTold = role == Qt::DisplayRole || (role >= IsHeader && role <= AccessibleText);
    if (!isTold || !checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const std::optional<DuplicateIndex::Position> file = fileAt(index.row());
    const Section& section = sections_[sectionAt(index.row())];
    switch (role) {
    case IsHeader:
        return !file.has_value();
    case SizeText:
        return sizeText(index_->groups()[section.group].size);
    default:
        return file ? fileValue(*file, section.group, role) : headerValue(section, role);
    }
}

QVariant DuplicatesModel::headerValue(const Section& section, int role) const {
    const DuplicateGroup& group = index_->groups()[section.group];
    switch (role) {
    case Name:
    case Qt::DisplayRole:
        return copies(group);
    case WasteText:
        return sizeText(index_->reclaimable(section.group)) + QStringLiteral(" can be freed");
    case TickedText:
        return tickedText(section.group);
    case Tick:
        return QVariant::fromValue(tick(section.group));
    case IsCollapsed:
        return section.isCollapsed;
    case AccessibleText:
        return headerSentence(section);
    case IsKept:
        return false;
    default:
        return QString();
    }
}

QVariant DuplicatesModel::fileValue(DuplicateIndex::Position file, std::size_t group,
                                    int role) const {
    const DuplicateFile& entry = index_->file(file);
    switch (role) {
    case Name:
    case Qt::DisplayRole:
        return shownText(entry.url.lastPathComponent());
    case Tick:
        return QVariant::fromValue(selection_.isSelected(file) ? Ui::Tick::All : Ui::Tick::None);
    case FolderText:
        return folderText(entry.url);
    case PathText:
        return shownPath(entry.url);
    case ModifiedText:
        return dateText(entry.modified);
    case IconName:
        return iconName(FileNode::Kind::regular);
    case IsKept:
        return selection_.kept(group) == file;
    case LinkText:
        return index_->original(file) == file ? QString()
                                              : QStringLiteral("same file, frees nothing");
    case UncertainText:
        return index_->isUncertain(file) ? QStringLiteral("changed or could not be read whole")
                                         : QString();
    case AccessibleText:
        return fileSentence(file, group);
    case IsCollapsed:
        return false;
    default:
        return QString();
    }
}

QString DuplicatesModel::folderText(const FileURL& file) const {
    const std::string folder = file.deletingLastPathComponent().path();
    const std::string& root = index_->result().root.path();
    const std::size_t start = root.size() + 1;
    const bool isBelow = liesWithin(folder, root);
    return isBelow ? shownPath(FileURL(folder.substr(std::min(start, folder.size()))))
                   : shownPath(FileURL(folder));
}

QString DuplicatesModel::tickedText(std::size_t group) const {
    const std::size_t ticked = selection_.countIn(group);
    return ticked == 0 ? QString()
                       : QStringLiteral("%1 of %2 ticked")
                             .arg(grouped(ticked), grouped(index_->groups()[group].files.size()));
}

Ui::Tick DuplicatesModel::tick(std::size_t group) const {
    const std::size_t ticked = selection_.countIn(group);
    if (ticked == 0) {
        return Ui::Tick::None;
    }
    return ticked == index_->groups()[group].files.size() ? Ui::Tick::All : Ui::Tick::Partial;
}

QString DuplicatesModel::headerSentence(const Section& section) const {
    const DuplicateGroup& group = index_->groups()[section.group];
    QStringList parts{copies(group) + QStringLiteral(" of ") + sizeText(group.size),
                      headerValue(section, WasteText).toString()};
    if (const QString ticked = tickedText(section.group); !ticked.isEmpty()) {
        parts.append(ticked);
    }
    parts.append(section.isCollapsed ? tr("collapsed") : tr("expanded"));
    return parts.join(QStringLiteral(", "));
}

QString DuplicatesModel::fileSentence(DuplicateIndex::Position file, std::size_t group) const {
    QStringList parts{shownText(index_->file(file).url.lastPathComponent())};
    const QString folder = folderText(index_->file(file).url);
    if (!folder.isEmpty()) {
        parts.append(tr("in %1").arg(folder));
    }
    for (const int role : {ModifiedText, LinkText, UncertainText}) {
        if (const QString text = fileValue(file, group, role).toString(); !text.isEmpty()) {
            parts.append(text);
        }
    }
    if (selection_.isSelected(file)) {
        parts.append(tr("ticked"));
    } else if (selection_.kept(group) == file) {
        parts.append(tr("stays"));
    }
    return parts.join(QStringLiteral(", "));
}

}
