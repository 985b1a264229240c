#pragma once

#include <HostKit/FileManager.h>
#include <ScanKit/FileNode.h>
#include <Services/QuickLocation.h>

#include <Controllers/FailureFolder.h>
#include <Controllers/RecordModel.h>

#include <memory>
#include <vector>

/// What the lists of the size map tell of each row.
namespace tolvane::ScanRoles {

QString nodeID(const FileNode& node);

/// "name", "pathText"
std::vector<RecordModel<FileNode>::Role> crumb();
/// "nodeID", "name", "pathText", "sizeText"
std::vector<RecordModel<FileNode>::Role> purgeableFile();
/// "title", "iconName", "pathText", "isAvailable"
std::vector<RecordModel<QuickLocation>::Role>
quickPlace(const std::shared_ptr<const FileManager>& files);
/// "pathText", "countText"
std::vector<RecordModel<FailureFolder>::Role> failureFolder();

}
