#include <HostKit/Terminal.h>

#include <sys/ioctl.h>

namespace tolvane {

std::optional<std::size_t> terminalWidth(int descriptor) {
    winsize size{};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return std::nullopt;
    }
    return size.ws_col;
}

}
