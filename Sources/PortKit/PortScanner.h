#pragma once

#include <HostKit/HostLayout.h>
#include <HostKit/Result.h>
#include <PortKit/PortListener.h>
#include <PortKit/PortScanError.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// Lists the processes that listen on TCP ports, as lsof tells them. Keeps nothing between calls;
/// callable from any thread.
class PortScanner {
  public:
    /// What lsof prints of one process.
    struct RawRecord {
        std::optional<std::int32_t> pid;
        std::optional<std::string> command;
        std::optional<std::string> protocolName;
        std::vector<std::string> addresses;

        /// That of the first address that has one.
        std::optional<std::int64_t> port() const;
    };
    using PathOfProcess = std::function<std::optional<std::string>(std::int32_t pid)>;

    /// Takes lsof's path from `tools`; paths of processes come from `sources`.
    PortScanner(const HostLayout::Tools& tools, HostLayout::Sources sources);

    /// Every listener that this user may see, by port, then by name. Blocks until lsof has ended;
    /// there is no time-out, but `isCancelled` ends it.
    Result<std::vector<PortListener>, PortScanError>
    scan(const std::function<bool()>& isCancelled = {}) const;

    /// How many TCP sockets listen on this machine on addresses that none of these listeners has:
    /// those of processes that this user may not see. `listeners` are all that a scan told.
    std::size_t countUnseen(const std::vector<PortListener>& listeners) const;

    /// The path of a process's executable, as bytes; absent where the system does not tell.
    static std::optional<std::string> executablePath(std::int32_t pid,
                                                     const HostLayout::Sources& sources);
    /// Reads lsof's field output (lsof(8), "OUTPUT FOR OTHER PROGRAMS"); records without a pid or a
    /// port are dropped.
    static std::vector<RawRecord> parse(std::string_view text);
    /// One listener for each process, port and protocol, sorted. Paths are asked for once for each.
    static std::vector<PortListener> merge(const std::vector<RawRecord>& records,
                                           const PathOfProcess& executablePath);

  private:
    FileURL lsof_;
    HostLayout::Sources sources_;
};

}
