#include <HostKit/linux/Spawn.h>

#include <signal.h>
#include <unistd.h>

namespace tolvane {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

Spawn::Spawn(short flags) {
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawn_file_actions_init(&actions_);
    // Signals that this process holds back or ignores are no business of the child's.
    sigset_t signals;
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes_, &signals);
    ::sigaddset(&signals, SIGPIPE);
    ::sigaddset(&signals, SIGTERM);
    ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    ::posix_spawnattr_setflags(
        &attributes_, static_cast<short>(flags | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
}

Spawn::~Spawn() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
}

void Spawn::connect(const Descriptor& descriptor, int stream) {
    ::posix_spawn_file_actions_adddup2(&actions_, descriptor.number(), stream);
}

Result<pid_t, SystemError> Spawn::start(const Tool& tool, char* const* environment) {
    ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    std::vector<std::string> words{tool.executable.path()};
    words.insert(words.end(), tool.arguments.begin(), tool.arguments.end());
    pid_t pid = 0;
    const int error = ::posix_spawnp(&pid, tool.executable.path().c_str(), &actions_, &attributes_,
                                     pointersTo(words).data(), environment);
    if (error != 0) {
        return tl::unexpected(SystemError{error});
    }
    return pid;
}

}
