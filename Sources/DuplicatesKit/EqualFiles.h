#pragma once

#include <DuplicatesKit/Candidates.h>
#include <DuplicatesKit/DuplicateGroup.h>

#include <vector>

namespace tolvane {

/// Groups of candidates before they get paths: small, because that is all there is in memory of a
/// million files while they are compared.
struct EqualFiles {
    /// Those of one group behind those of the group before.
    std::vector<Candidates::Position> positions;
    /// Still without files.
    std::vector<DuplicateGroup> groups;
    /// For each group, how many of the positions are its own or of one before it.
    std::vector<Candidates::Position> ends;

    /// What people get to see: largest waste first, of equal waste by path. Every candidate is
    /// dropped once its file is made, so that there is never all of both.
    std::vector<DuplicateGroup> made(Candidates candidates) &&;
};

}
