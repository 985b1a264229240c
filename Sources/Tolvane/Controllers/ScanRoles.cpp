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

RecordModel<QuickLocation> quickPlaces(const std::shared_ptr<const FileManager>& files) {
    using Row = const QuickLocation&;
    return {{{"title", [](Row place) { return shownText(place.title); }},
             {"iconName", [](Row place) { return shownText(place.symbol); }},
             {"pathText", [](Row place) { return shownPath(place.url); }},
             {"isAvailable", [files](Row place) { return files->exists(place.url); }}},
            [](Row place) { return QString::fromStdString(text(place.id)); }};
}

RecordModel<FailureFolder> failureFolders() {
    using Row = const FailureFolder&;
    return {{{"pathText", [](Row folder) { return shownPath(folder.folder); }},
             {"countText", [](Row folder) { return shownCount(folder.count, "item"); }}},
            [](Row folder) { return shownText(folder.folder.path()); }};
}

}
