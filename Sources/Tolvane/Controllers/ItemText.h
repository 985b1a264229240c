#pragma once

#include <ScanKit/FileNode.h>

#include <QString>

namespace tolvane {

/// The icon of an item of this kind, by its freedesktop name.
QString iconName(FileNode::Kind kind);
/// "Folder", "File", ...
QString kindText(FileNode::Kind kind);

}
