#pragma once

#include <DuplicatesKit/Candidates.h>
#include <DuplicatesKit/DuplicateGroup.h>

#include <vector>

namespace tolvane {

/// Groups of candidates before they get paths: small, because that is all there is in memory of a
/// million files while they are compared.
struct EqualFiles {
    struct Group {
        Digest::Value digest;
        Bytes size;
        /// Its part of `files`.
        std::uint32_t start;
        std::uint32_t count;
    };

    /// Those of each group together, ascending.
    std::vector<Candidates::Rank> files;
    std::vector<Group> groups;

    /// What people get to see: largest waste first, of equal waste by path. Every candidate is
    /// dropped once its file is made, so that there is never all of both. Nothing is compared but
    /// numbers: whoever cancelled waits for it.
    std::vector<DuplicateGroup> made(Candidates candidates) &&;

  private:
    /// Of groups, in the order of the result.
    std::vector<std::uint32_t> order() const;
};

}
