#pragma once

#include <HostKit/Checked.h>
#include <HostKit/FileURL.h>

#include <Controllers/UserDefaults.h>

#include <cstdint>
#include <optional>

namespace tolvane {

/// What earlier scans found, by root: the base of a running scan's estimate. At most 40 roots are
/// remembered. For the main thread.
class ScanStatistics {
  public:
    struct Expected {
        std::int64_t files = 0;
        Bytes bytes = 0;
    };

    /// `defaults` must outlive this.
    explicit ScanStatistics(UserDefaults& defaults);

    /// Absent unless both figures are known and positive.
    std::optional<Expected> expected(const FileURL& root) const;
    void save(const FileURL& root, const Expected& found);

  private:
    UserDefaults& defaults_;
};

}
