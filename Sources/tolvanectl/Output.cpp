#include "Output.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace tolvane {
namespace {

/// Somebody else may have set the descriptor to return at once.
void waitUntilWritable(int descriptor) {
    pollfd waiting{.fd = descriptor, .events = POLLOUT, .revents = 0};
    constexpr int forever = -1;
    ::poll(&waiting, 1, forever);
}

std::optional<SystemError> writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            waitUntilWritable(descriptor);
        } else if (errno != EINTR) {
            return SystemError::last();
        }
    }
    return std::nullopt;
}

}

Result<void, SystemError> Output::flush() {
    if (!failure_) {
        failure_ = writeAll(descriptor_, {buffer_.data(), buffer_.size()});
    }
    buffer_.clear();
    if (failure_) {
        return tl::unexpected(*failure_);
    }
    return {};
}

}
