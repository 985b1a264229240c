#pragma once

#include <HostKit/Result.h>
#include <HostKit/Tool.h>
#include <HostKit/linux/Descriptor.h>

#include <spawn.h>
#include <sys/types.h>

#include <string>
#include <vector>

namespace tolvane {

/// The texts as execve(2) takes them; they must outlive what is given.
std::vector<char*> pointersTo(std::vector<std::string>& texts);

/// Starts one tool, which gets no file of this process but what is connected.
class Spawn {
  public:
    /// `flags` as posix_spawnattr_setflags(3) takes them.
    explicit Spawn(short flags);
    ~Spawn();
    Spawn(const Spawn&) = delete;
    Spawn& operator=(const Spawn&) = delete;

    /// Makes `descriptor` this stream of the child.
    void connect(const Descriptor& descriptor, int stream);
    Result<pid_t, SystemError> start(const Tool& tool, char* const* environment);

  private:
    posix_spawnattr_t attributes_;
    posix_spawn_file_actions_t actions_;
};

}
