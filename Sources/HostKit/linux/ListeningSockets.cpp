#include <HostKit/Lines.h>
#include <HostKit/ListeningSockets.h>
#include <HostKit/linux/Contents.h>
#include <HostKit/linux/LongPath.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>
#include <system_error>
#include <utility>

namespace tolvane::ListeningSockets {
namespace {

using RawAddress = std::array<std::uint32_t, 4>;

/// `raw` is in network order; of IPv4 only the first word counts. An IPv4 address in the form of
/// IPv6 is written as what it stands for.
std::string addressText(int family, const RawAddress& raw, std::uint16_t port) {
    const bool isMapped =
        family == AF_INET6 && raw[0] == 0 && raw[1] == 0 && raw[2] == htonl(0xFFFF);
    if (isMapped) {
        return addressText(AF_INET, {raw[3]}, port);
    }
    const std::size_t words = family == AF_INET ? 1 : raw.size();
    const bool isAny = std::all_of(raw.begin(), raw.begin() + static_cast<std::ptrdiff_t>(words),
                                   [](std::uint32_t word) { return word == 0; });
    std::array<char, INET6_ADDRSTRLEN> text{};
    ::inet_ntop(family, raw.data(), text.data(), text.size());
    const std::string host = isAny               ? "*"
                             : family == AF_INET ? text.data()
                                                 : "[" + std::string(text.data()) + "]";
    return host + ":" + std::to_string(port);
}

/// The question for all listening sockets of a family (sock_diag(7)).
struct Request {
    nlmsghdr header{};
    inet_diag_req_v2 body{};

    explicit Request(int family) {
        header.nlmsg_len = sizeof(Request);
        header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
        header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
        body.sdiag_family = static_cast<std::uint8_t>(family);
        body.sdiag_protocol = IPPROTO_TCP;
        body.idiag_states = 1U << TCP_LISTEN;
    }
};

/// Takes the sockets out of one answer; whether it is the last, absent when it is a refusal.
std::optional<bool> takeAnswer(const char* bytes, std::size_t size, int family,
                               std::vector<std::string>& addresses) {
    nlmsghdr header{};
    while (size >= sizeof header) {
        std::memcpy(&header, bytes, sizeof header);
        if (header.nlmsg_type == NLMSG_DONE) {
            return true;
        }
        inet_diag_msg socket{};
        if (header.nlmsg_type == NLMSG_ERROR || header.nlmsg_len < NLMSG_HDRLEN + sizeof socket ||
            header.nlmsg_len > size) {
            return std::nullopt;
        }
        std::memcpy(&socket, bytes + NLMSG_HDRLEN, sizeof socket);
        RawAddress raw{};
        std::memcpy(raw.data(), socket.id.idiag_src, sizeof raw);
        addresses.push_back(addressText(family, raw, ntohs(socket.id.idiag_sport)));
        const std::size_t step = std::min<std::size_t>(NLMSG_ALIGN(header.nlmsg_len), size);
        bytes += step;
        size -= step;
    }
    return false;
}

/// Asks for listening sockets alone: the text tables cost a walk over every connection there could
/// be. False when the kernel does not answer.
bool ask(int family, std::vector<std::string>& addresses) {
    const Descriptor socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_SOCK_DIAG));
    const Request request(family);
    if (!socket.isOpen() || ::send(socket.number(), &request, sizeof request, 0) < 0) {
        return false;
    }
    std::vector<char> answer(65'536);
    while (true) {
        const ssize_t size = ::recv(socket.number(), answer.data(), answer.size(), 0);
        if (size <= 0) {
            return false;
        }
        const std::optional<bool> isLast =
            takeAnswer(answer.data(), static_cast<std::size_t>(size), family, addresses);
        if (!isLast || *isLast) {
            return isLast.has_value();
        }
    }
}

std::string tableText(const FileURL& table) {
    constexpr std::size_t largestTable = 1 << 24;
    const Result<Descriptor, SystemError> file = openPath(table.path(), O_RDONLY);
    return file ? readContents(*file, largestTable).value_or("") : "";
}

std::optional<std::uint32_t> hexadecimal(std::string_view text) {
    std::uint32_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    return error == std::errc() && stop == text.data() + text.size() ? std::optional(number)
                                                                     : std::nullopt;
}

/// The address in "0100007F:1F90" or the longer form of IPv6: words as they lie in memory.
std::optional<std::string> addressIn(std::string_view field) {
    constexpr std::size_t wordLength = 8;
    const std::size_t separator = field.find(':');
    if (separator != wordLength && separator != 4 * wordLength) {
        return std::nullopt;
    }
    RawAddress raw{};
    for (std::size_t i = 0; i * wordLength < separator; ++i) {
        const auto word = hexadecimal(field.substr(i * wordLength, wordLength));
        if (!word) {
            return std::nullopt;
        }
        raw[i] = *word;
    }
    const auto port = hexadecimal(field.substr(separator + 1));
    if (!port || *port > 65'535) {
        return std::nullopt;
    }
    return addressText(separator == wordLength ? AF_INET : AF_INET6, raw,
                       static_cast<std::uint16_t>(*port));
}

}

std::vector<std::string> addresses(const HostLayout::Sources& sources) {
    std::vector<std::string> found;
    if (ask(AF_INET, found) && ask(AF_INET6, found)) {
        return found;
    }
    found = parse(tableText(sources.proc.appending("net/tcp")));
    const std::vector<std::string> six = parse(tableText(sources.proc.appending("net/tcp6")));
    found.insert(found.end(), six.begin(), six.end());
    return found;
}

std::vector<std::string> parse(std::string_view table) {
    constexpr std::string_view listening = "0A";
    std::vector<std::string> found;
    takeLine(table);
    while (!table.empty()) {
        std::string_view line = takeLine(table);
        takeWord(line);
        const std::string_view local = takeWord(line);
        takeWord(line);
        if (takeWord(line) != listening) {
            break;
        }
        if (std::optional<std::string> address = addressIn(local)) {
            found.push_back(std::move(*address));
        }
    }
    return found;
}

}
