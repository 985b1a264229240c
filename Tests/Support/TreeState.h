#pragma once

#include <map>
#include <string>

namespace tolvane {

/// Every item below a folder by its path from there, and what it is: its type with the content of a
/// file or the target of a link. Two states are equal when nothing was lost or changed.
using TreeState = std::map<std::string, std::string>;

TreeState treeState(const std::string& folder);

}
