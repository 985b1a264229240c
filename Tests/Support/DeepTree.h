#pragma once

#include <HostKit/FileURL.h>

#include <cstddef>
#include <string_view>

namespace tolvane {

/// Makes a chain of `levels` folders that all bear `name`, below `top`, each with one file "f" of
/// `content`; paths longer than PATH_MAX come of it. Gives the deepest folder.
FileURL makeDeepTree(const FileURL& top, std::size_t levels, std::string_view name,
                     std::string_view content);

/// Removes everything below `top`, however deep: what the usual calls refuse.
void removeDeepTree(const FileURL& top);

/// How many descriptors this process holds.
std::size_t openDescriptors();

}
