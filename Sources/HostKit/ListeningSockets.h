#pragma once

#include <HostKit/HostLayout.h>

#include <string>
#include <string_view>
#include <vector>

/// The TCP sockets that listen on this machine, whoever holds them. An address is written as lsof
/// writes it: "127.0.0.1:80", "[::1]:631", "*:80" for all of either kind.
namespace tolvane::ListeningSockets {

/// The address of every one, by the system's own table; empty where it keeps none.
std::vector<std::string> addresses(const HostLayout::Sources& sources);

/// The same from the text of such a table (proc(5), "net/tcp" and "net/tcp6"). Listening sockets
/// come first there; nothing behind the last is read.
std::vector<std::string> parse(std::string_view table);

}
