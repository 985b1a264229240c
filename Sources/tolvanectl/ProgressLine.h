#pragma once

#include <HostKit/Date.h>
#include <Services/Throttle.h>

#include <string>
#include <string_view>

namespace tolvane {

/// One line on a terminal that tells how far long work has come; nothing at all elsewhere. Used by
/// one thread.
class ProgressLine {
  public:
    explicit ProgressLine(int descriptor);
    ~ProgressLine() { clear(); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// Whether there is a terminal to show it on.
    bool isShown() const { return isShown_; }
    /// Whether the line may change again: at most ten times a second.
    bool isDue();
    /// Shows `facts`, the time since the line was made, and as much of `path` as fits.
    void show(std::string_view facts, std::string_view path);
    void clear();

    /// Seconds since the line was made.
    Seconds elapsed() const { return steadyTime() - start_; }

  private:
    std::size_t usableWidth() const;
    void replace(const std::string& text);

    const int descriptor_;
    const bool isShown_;
    const Date start_ = steadyTime();
    Throttle throttle_;
    /// Columns that the line takes now.
    std::size_t shownColumns_ = 0;
};

}
