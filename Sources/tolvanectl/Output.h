#pragma once

#include <HostKit/Result.h>

#include <fmt/format.h>

#include <optional>
#include <string_view>

namespace tolvane {

/// Standard output, written in large pieces. The first failure is kept and ends the writing.
class Output {
  public:
    explicit Output(int descriptor)
        : descriptor_(descriptor) {}
    /// Flushes nothing: only `flush` can tell of a failure.
    ~Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void append(std::string_view text) { buffer_.append(text.data(), text.data() + text.size()); }
    template <class... Arguments>
    void format(fmt::format_string<Arguments...> pattern, Arguments&&... arguments) {
        fmt::format_to(fmt::appender(buffer_), pattern, std::forward<Arguments>(arguments)...);
    }
    /// Hands on what has gathered once that is worth a system call.
    void flushIfLarge() {
        if (buffer_.size() >= largePiece) {
            flush();
        }
    }
    /// Hands on everything; tells of the first failure since the beginning.
    Result<void, SystemError> flush();

  private:
    static constexpr std::size_t largePiece = 65'536;

    const int descriptor_;
    fmt::memory_buffer buffer_;
    std::optional<SystemError> failure_;
};

}
