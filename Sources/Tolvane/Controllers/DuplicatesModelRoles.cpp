// What the rows of the duplicates tell.

#include <Services/ByteFormat.h>

#include <Controllers/DuplicatesModel.h>
#include <Controllers/DuplicatesTexts.h>
#include <Controllers/ItemText.h>
#include <Controllers/ShownText.h>

#include <QStringList>
#include <algorithm>

namespace tolvane {
namespace {

QString sizeText(Bytes size) {
    return shownText(ByteFormat::text(size));
}

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
        return DuplicatesTexts::copies(group.files.size());
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
    return DuplicatesTexts::ticked(selection_.countIn(group), index_->groups()[group].files.size());
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
    QStringList parts{DuplicatesTexts::copies(group.files.size()) + QStringLiteral(" of ") +
                          sizeText(group.size),
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
