#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

/// Processes made for a test that accept connections on free TCP ports until this is destroyed: the
/// first is a child of the test, each other one a child of the one before it.
class ListeningProcess {
  public:
    /// One port for each address, which all processes share. `name` is what the processes are
    /// called, if not empty.
    explicit ListeningProcess(const std::vector<std::string>& addresses,
                              const std::string& name = {}, std::size_t processes = 1);
    ~ListeningProcess();
    ListeningProcess(const ListeningProcess&) = delete;
    ListeningProcess& operator=(const ListeningProcess&) = delete;

    std::int32_t pid() const { return pids_.front(); }
    const std::vector<std::int32_t>& pids() const { return pids_; }
    const std::vector<std::int64_t>& ports() const { return ports_; }
    /// Those that have not ended.
    std::vector<std::int32_t> running() const;
    /// Waits a while for the end of one of them.
    static bool endsSoon(std::int32_t pid);
    /// Waits for the end of all and tells which signals ended them.
    std::vector<int> awaitEnd();

  private:
    std::vector<std::int32_t> pids_;
    std::vector<std::int64_t> ports_;
};

}
