#pragma once

#include <DuplicatesKit/DuplicateScanner.h>
#include <HostKit/HostLayout.h>
#include <UninstallerKit/AppInventory.h>
#include <UninstallerKit/LeftoverFinder.h>

#include <BrightpassKit/BrightpassOptions.h>
#include <BrightpassKit/BrightpassReport.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tolvane {

/// Measures in one run what could be reclaimed: junk folders, what the installed applications leave
/// behind, duplicates in one folder. Removes nothing. Made for one scan; works on the caller's
/// thread and calls back on it.
class BrightpassScanner {
  public:
    /// Smaller files are not compared by the scanner that `of` makes. Small ones are worth a look
    /// here: a check tells totals, nobody has to go through a list.
    static constexpr Bytes minimumDuplicateSize = 1024;

    /// What is told of each scan, in this order.
    static constexpr std::array<const char*, 4> stages{
        "Measuring junk", "Inventorying applications", "Looking for duplicates", "Summarizing"};

    /// Told the stage that begins, as a text for people.
    using Progress = std::function<void(const std::string& stage)>;

    BrightpassScanner(AppInventory inventory, LeftoverFinder leftovers, DuplicateScanner duplicates,
                      std::shared_ptr<const FileManager> fileManager);

    /// The scanner of this layout: its applications, the protection it usually has, and duplicates
    /// in `duplicatesRoot`.
    static BrightpassScanner of(const HostLayout& layout,
                                const std::shared_ptr<const FileManager>& fileManager,
                                const std::optional<FileURL>& duplicatesRoot);

    /// Never fails: what cannot be read counts as nothing. `isCancelled` is asked between items and
    /// within them; every stage is told all the same. Both may be empty.
    BrightpassReport scan(const BrightpassOptions& options, const Progress& progress = {},
                          const std::function<bool()>& isCancelled = {});

  private:
    std::vector<JunkCategory> measuredJunk(const std::vector<FileURL>& roots,
                                           const std::function<bool()>& isCancelled) const;
    std::vector<AppLeftoverSummary> foundLeftovers(bool includeSystemApps,
                                                   const std::function<bool()>& isCancelled) const;

    AppInventory inventory_;
    LeftoverFinder leftovers_;
    DuplicateScanner duplicates_;
    std::shared_ptr<const FileManager> files_;
};

}
