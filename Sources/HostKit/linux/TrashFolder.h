#pragma once

#include <HostKit/Result.h>
#include <HostKit/linux/Descriptor.h>
#include <HostKit/linux/LongPath.h>

#include <sys/types.h>

#include <string>
#include <string_view>

namespace tolvane {

/// Opens the directory `name` in `parent`, made with mode 0700 when it is missing. One that is a
/// link (ENOTDIR) or another user's (EPERM) is refused.
Result<Descriptor, SystemError> ownDirectory(const Descriptor& parent, const std::string& name,
                                             uid_t user);

/// Removes the info file of the item called `trashName` from an "info" folder. The only place of
/// the project that removes anything from a disk.
void removeInfoFile(const Descriptor& info, std::string_view trashName);

/// One open Trash folder whose parts were found to be real directories of the user.
class TrashFolder {
  public:
    static Result<TrashFolder, SystemError> open(const Descriptor& trash, uid_t user);

    /// Writes the info file, which records `originalPath`, then moves the item in. Gives its name
    /// in "files"; on failure the item is where it was and no info file of it is left.
    Result<std::string, SystemError> receive(const ItemPlace& item,
                                             std::string_view originalPath) const;

  private:
    TrashFolder(Descriptor files, Descriptor info);

    Result<void, SystemError> receiveAs(const std::string& trashName, const ItemPlace& item,
                                        std::string_view info) const;
    bool isTaken(const std::string& trashName) const;
    unsigned freeNumber(std::string_view name, unsigned taken) const;

    Descriptor files_;
    Descriptor info_;
};

}
