#include <Support/OrdinaryUser.h>

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

namespace tolvane {
namespace {

constexpr uid_t nobody = 65534;

bool dropRights() {
    return ::geteuid() != 0 ||
           (::setgroups(0, nullptr) == 0 && ::setresgid(nobody, nobody, nobody) == 0 &&
            ::setresuid(nobody, nobody, nobody) == 0);
}

void writeAll(int output, const std::string& text) {
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = ::write(output, text.data() + written, text.size() - written);
        if (count <= 0) {
            return;
        }
        written += static_cast<std::size_t>(count);
    }
}

}

std::string asOrdinaryUser(const std::function<std::string()>& work) {
    int ends[2];
    if (::pipe(ends) != 0) {
        return "no pipe";
    }
    const pid_t child = ::fork();
    if (child == 0) {
        writeAll(ends[1], dropRights() ? work() : "root's rights could not be dropped");
        ::_exit(0);
    }
    ::close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;) {
        text.append(buffer, static_cast<std::size_t>(count));
    }
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return text;
}

void giveToOrdinaryUser(const std::string& folder) {
    if (::geteuid() != 0) {
        return;
    }
    bool isGiven = ::lchown(folder.c_str(), nobody, nobody) == 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        isGiven = ::lchown(entry.path().c_str(), nobody, nobody) == 0 && isGiven;
    }
    if (!isGiven) {
        std::fprintf(stderr, "could not give %s away\n", folder.c_str());
    }
}

}
