#pragma once

#include <HostKit/FileURL.h>
#include <HostKit/Result.h>
#include <ScanKit/FileNode.h>

#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

struct PictureSize {
    int width = 0;
    int height = 0;
};

/// "1200x800"; absent for anything but two numbers from 1 to 100,000.
std::optional<PictureSize> pictureSize(std::string_view text);

/// Draws the folder's children into `file` (SVG 1.1), replacing what it held: the area of each is
/// its share.
Result<void, SystemError> writeTreemap(const FileNode& folder, const PictureSize& size,
                                       const FileURL& file);

}
