#pragma once

#include <tl/expected.hpp>

#include <string>

namespace tolvane {

/// A value or the reason why there is none. Every failure of this project travels in one.
template <class T, class E>
using Result = tl::expected<T, E>;

/// A failed system call, by its error number.
struct SystemError {
    int code = 0;

    /// The system's own words for the code (`strerror`).
    std::string message() const;
    /// What a listing that failed is reported with: as `message()`, but both refusals (EPERM and
    /// EACCES) read "Operation not permitted", which is what tells missing rights from other
    /// faults.
    std::string description() const;
    /// Whether the call was stopped by the caller's own stop test.
    bool isCancelled() const;

    /// The error of the last failed call of this thread.
    static SystemError last();
    /// Stands for a call that its caller's stop test ended.
    static SystemError cancelled();

    friend bool operator==(const SystemError&, const SystemError&) = default;
};

}
