// Loaded into a program before its libraries: whoever lists a folder called "silent" gets no
// answer, as from a server that is gone.

#include <sys/syscall.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

extern "C" __attribute__((visibility("default"))) ssize_t getdents64(int descriptor, void* buffer,
                                                                     size_t size) noexcept {
    std::error_code error;
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    while (std::filesystem::read_symlink(link, error).filename() == "silent") {
        ::pause();
    }
    return ::syscall(SYS_getdents64, descriptor, buffer, size);
}
