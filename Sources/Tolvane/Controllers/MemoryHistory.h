#pragma once

#include <HostKit/Date.h>

#include <QList>
#include <chrono>
#include <optional>

namespace tolvane {

/// How much of the memory was used over the last minutes, in steps of one length, so that a line
/// drawn through them keeps to the time. A step in which nobody looked is a gap.
class MemoryHistory {
  public:
    static constexpr int steps = 100;
    /// Stands for a step that nobody looked at.
    static constexpr double unknown = -1;

    explicit MemoryHistory(std::chrono::milliseconds step);

    /// A sample taken at `now`, in seconds of a clock that never runs backwards; another one in the
    /// same step replaces it.
    void add(Date now, double usedFraction);

    /// `steps` fractions from 0 to 1, or `unknown`; the newest is the last.
    const QList<double>& fractions() const { return fractions_; }
    /// Absent before the first sample.
    std::optional<double> least() const;
    std::optional<double> most() const;

  private:
    const double step_;
    QList<double> fractions_;
    std::optional<Date> latest_;
};

}
