#pragma once

#include <DuplicatesKit/Candidates.h>
#include <DuplicatesKit/DuplicateGroup.h>
#include <DuplicatesKit/Runs.h>
#include <HostKit/Digest.h>

#include <vector>

namespace tolvane {

/// Groups of candidates before they get paths: small, because that is all there is in memory of a
/// million files while they are compared.
struct EqualFiles {
    struct Group {
        Digest::Value hash;
        /// Part of `positions`.
        Run run;
    };

    std::vector<Candidates::Position> positions;
    std::vector<Group> groups;

    /// What people get to see: largest waste first, of equal waste by path.
    std::vector<DuplicateGroup> made(const Candidates& files) const;
};

}
