#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>

#include <Controllers/UserDefaults.h>

#include <cstdint>
#include <optional>

namespace tolvane {

/// What earlier scans found, by root: the base of a running scan's estimate. At most 40 roots are
/// remembered, none of whose path is no UTF-8. For the main thread.
class ScanStatistics {
  public:
    struct Expected {
        std::int64_t files = 0;
        Bytes bytes = 0;

        friend bool operator==(const Expected&, const Expected&) = default;
    };

    /// `defaults` must outlive this.
    explicit ScanStatistics(UserDefaults& defaults)
        : defaults_(defaults) {}

    /// Absent unless both figures are known and positive.
    std::optional<Expected> expected(const FileURL& root) const;
    /// Where there is no room for another root, the first one in the order of paths goes, but not
    /// `root` itself.
    void save(const FileURL& root, const Expected& found);

  private:
    UserDefaults& defaults_;
};

}
