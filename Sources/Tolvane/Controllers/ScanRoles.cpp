#include <Controllers/ScanRoles.h>
#include <Controllers/ShownFigures.h>
#include <Controllers/ShownText.h>

namespace tolvane::ScanRoles {

QString nodeID(const FileNode& node) {
    return QString::fromStdString(text(node.id()));
}

std::vector<RecordModel<FileNode>::Role> crumb() {
    return {{"name", [](const FileNode& node) { return shownText(node.name()); }},
            {"pathText", [](const FileNode& node) { return shownPath(node.url()); }}};
}

std::vector<RecordModel<FileNode>::Role> purgeableFile() {
    return {{"nodeID", nodeID},
            {"name", [](const FileNode& node) { return shownText(node.name()); }},
            {"pathText", [](const FileNode& node) { return shownPath(node.url()); }},
            {"sizeText", [](const FileNode& node) { return shownSize(node.allocatedSize()); }}};
}

std::vector<RecordModel<QuickLocation>::Role>
quickPlace(const std::shared_ptr<const FileManager>& files) {
    return {
        {"title", [](const QuickLocation& place) { return shownText(place.title); }},
        {"iconName", [](const QuickLocation& place) { return shownText(place.symbol); }},
        {"pathText", [](const QuickLocation& place) { return shownPath(place.url); }},
        {"isAvailable", [files](const QuickLocation& place) { return files->exists(place.url); }}};
}

std::vector<RecordModel<FailureFolder>::Role> failureFolder() {
    return {{"pathText", [](const FailureFolder& folder) { return shownPath(folder.folder); }},
            {"countText",
             [](const FailureFolder& folder) { return shownCount(folder.count, "item"); }}};
}

}
