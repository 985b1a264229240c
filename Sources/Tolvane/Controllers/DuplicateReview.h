#pragma once

#include <HostKit/FileManager.h>

#include <Controllers/DuplicateIndex.h>
#include <Controllers/Removal.h>

#include <functional>
#include <memory>

/// What a person should know before copies go to the Trash. Some time lies between the comparison
/// and the removal: so the disk is asked again about each file and about a copy of it that stays.
namespace tolvane::DuplicateReview {

/// Warns of files of `index` that changed, could not be read whole, free nothing, or would leave
/// no copy behind. To be called on a worker.
Removal::Warnings warnings(const DuplicateIndex& index, const FileManager& files,
                           const std::vector<ReviewItem>& items,
                           const std::function<bool()>& isCancelled);

}
