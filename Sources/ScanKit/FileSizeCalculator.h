#pragma once

#include <HostKit/FileManager.h>

#include <functional>

/// How much one item takes, a file or a whole folder, without building a tree. What cannot be read
/// counts as nothing. Callable from any thread.
namespace tolvane::FileSizeCalculator {

/// Bytes on disk of the regular files: of the item, or of all below it. Links are not followed and
/// count nothing. `isCancelled` is asked at every 256th item; the sum so far is returned.
Bytes allocatedSize(const FileManager& files, const FileURL& url,
                    const std::function<bool()>& isCancelled = {});

/// Content length of the item, or of all below it, links included with the length of their text.
/// Always runs to its end.
Bytes logicalSize(const FileManager& files, const FileURL& url,
                  const std::function<bool()>& isCancelled = {});

}
