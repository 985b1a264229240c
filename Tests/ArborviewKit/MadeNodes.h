#pragma once

#include <ScanKit/FileNode.h>

#include <random>
#include <string>
#include <vector>

namespace tolvane {

FileNode madeFile(const std::string& name, Bytes size);
FileNode madeFolder(const std::string& name, std::vector<FileNode> children, Bytes hiddenBytes = 0);

/// A folder with files and folders below it to the given depth, some of them empty.
FileNode randomTree(std::mt19937& random, int depth);

}
