#pragma once

#include <HostKit/FileManager.h>
#include <ScanKit/FileNode.h>
#include <Services/QuickLocation.h>

#include <Controllers/FailureFolder.h>
#include <Controllers/RecordModel.h>

#include <memory>
#include <vector>

/// What the lists of a scan tell of each row, and, where several screens have the list, the list.
namespace tolvane::ScanRoles {

QString nodeID(const FileNode& node);

/// "name", "pathText"
std::vector<RecordModel<FileNode>::Role> crumb();
/// "nodeID", "name", "pathText", "sizeText"
std::vector<RecordModel<FileNode>::Role> purgeableFile();
/// "title", "iconName", "pathText", "isAvailable"
RecordModel<QuickLocation> quickPlaces(const std::shared_ptr<const FileManager>& files);
/// "pathText", "countText"
RecordModel<FailureFolder> failureFolders();

}
