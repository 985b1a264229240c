#pragma once

#include <HostKit/linux/LongPath.h>

namespace tolvane {

/// Renames `item` to `name` in `directory`; never over something that is there already (EEXIST).
/// What failed and yet left the item there counts as done. The only place of the project that
/// renames an item of the user.
Result<void, SystemError> moveItem(const ItemPlace& item, const Descriptor& directory,
                                   const std::string& name);

}
