#pragma once

#include <HostKit/FileManager.h>
#include <HostKit/HostLayout.h>
#include <Services/Job.h>

#include <Controllers/DuplicateIndex.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// The part of a search for duplicates that runs on a worker.
namespace tolvane::DuplicateScan {

struct Result {
    std::shared_ptr<const DuplicateIndex> index;
    /// What exists below the root and was left out.
    std::vector<FileURL> notEntered;
    Bytes minimumSize = 0;
    Seconds seconds = 0;
    bool isCancelled = false;
};

/// Looks through `root`, hidden files left out, and reports the number of files fingerprinted.
Result scan(const HostLayout& layout, const std::shared_ptr<const FileManager>& files,
            const FileURL& root, Bytes minimumSize, const Report<std::int64_t>& report,
            const std::function<bool()>& isCancelled);

}
