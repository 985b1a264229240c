#pragma once

#include <CleanupKit/RemovalReceipt.h>
#include <HostKit/HostLayout.h>
#include <Support/RunProgram.h>
#include <Support/TreeState.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// GIO's command line with gvfs behind it, working on the Trash of a temporary home.
class Gio {
  public:
    /// Absent when it is not installed.
    static std::optional<Gio> find(const std::string& home);

    void trash(const std::vector<std::string>& paths) const;
    /// Where everything in the Trash came from, sorted.
    std::vector<std::string> originalPaths() const;
    /// Restores what it can.
    void restoreAll() const;

  private:
    explicit Gio(std::string home)
        : home_(std::move(home)) {}
    /// Where everything came from, by its address in the Trash.
    std::map<std::string, std::string> entries() const;
    ProgramRun run(std::vector<std::string> arguments) const;

    std::string home_;
};

/// trash-cli, working on the Trash of a temporary home.
class TrashCli {
  public:
    static std::optional<TrashCli> find(const std::string& home);

    void trash(const std::vector<std::string>& paths) const;
    /// Where everything in the Trash came from that came from below `folder`, sorted.
    std::vector<std::string> originalPaths(const std::string& folder) const;
    void restoreAll(std::size_t count) const;

  private:
    explicit TrashCli(std::string home)
        : home_(std::move(home)) {}
    std::string run(std::vector<std::string> arguments, const std::string& input = {}) const;

    std::string home_;
};

/// The state with the "\xNN" undone that GIO writes for bytes which are no plain characters.
TreeState withoutEscapes(const TreeState& state);

/// A receipt for every item in the home Trash that an info file tells of; one without a valid info
/// file fails the test and is left out.
std::vector<RemovalReceipt> receiptsFromTrash(const HostLayout& layout);
bool trashIsEmpty(const HostLayout& layout);

}
