#include <Controllers/Inspector.h>
#include <Controllers/ItemText.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

namespace tolvane {
namespace {

QString sizeText(Bytes size) {
    return QStringLiteral("%1 (%2)").arg(shownSize(size), shownCount(size, "byte"));
}

QString countText(std::int64_t files, std::int64_t folders) {
    return shownCount(files, "file") + QStringLiteral(", ") + shownCount(folders, "folder");
}

std::vector<Detail> detailsOf(const FileNode& node) {
    const NodeTotals all = totals(node);
    std::vector<Detail> details{
        {QStringLiteral("Kind"), kindText(node.kind())},
        {QStringLiteral("On disk"), sizeText(all.totalAllocatedSize)},
        {all.notListedFileCount() > 0 ? QStringLiteral("Listed content")
                                      : QStringLiteral("Content"),
         sizeText(all.totalLogicalSize)},
    };
    if (node.isDirectory()) {
        details.push_back(
            {QStringLiteral("Contains"), countText(all.fileCount, all.directoryCount - 1)});
    }
    if (all.notListedFileCount() > 0 || all.notListedDirectoryCount() > 0) {
        details.push_back({QStringLiteral("Without a row"),
                           countText(all.notListedFileCount(), all.notListedDirectoryCount())});
    }
    if (all.totalPurgeableSize > 0) {
        details.push_back({QStringLiteral("Purgeable"), sizeText(all.totalPurgeableSize)});
    }
    if (node.modified()) {
        details.push_back({QStringLiteral("Modified"), dateText(node.modified())});
    }
    return details;
}

}

Inspector::Inspector(const Environment& environment)
    : files_(environment.files)
    , details_({{"label", [](const Detail& detail) { return detail.label; }},
                {"value", [](const Detail& detail) { return detail.value; }}},
               [](const Detail& detail) { return detail.label; })
    , counting_(environment.workers, 0, {}, [this](LinkCount count) { tellOfLinks(count); }) {}

void Inspector::show(const FileNode& node) {
    item_ = node;
    hasItem_ = true;
    nodeID_ = QString::fromStdString(text(node.id()));
    name_ = shownText(node.name());
    iconName_ = tolvane::iconName(node.kind());
    pathText_ = shownPath(node.url());
    isDirectory_ = node.isDirectory();
    details_.update(detailsOf(node));
    countLinks();
}

void Inspector::countLinks() {
    counting_.discard();
    if (item_->kind() == FileNode::Kind::regular) {
        counting_.start(
            [files = files_, url = item_->url()](const auto&, const auto&) -> LinkCount {
                const auto values = files->values(url);
                return values ? values->linkCount : std::nullopt;
            });
    }
}

void Inspector::tellOfLinks(LinkCount count) {
    if (!count || *count < 2) {
        return;
    }
    std::vector<Detail> details = details_.records();
    details.push_back({QStringLiteral("Hard links"),
                       QStringLiteral("%1 names of one file: space returns when all are gone")
                           .arg(shownNumber(*count))});
    details_.update(std::move(details));
}

void Inspector::clear() {
    counting_.discard();
    item_.reset();
    hasItem_ = false;
    nodeID_ = QString();
    name_ = QString();
    iconName_ = QString();
    pathText_ = QString();
    isDirectory_ = false;
    details_.reset({});
}

}
