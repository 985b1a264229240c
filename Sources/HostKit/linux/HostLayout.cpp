#include <HostKit/HostLayout.h>
#include <HostKit/linux/Contents.h>
#include <HostKit/linux/LongPath.h>

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <utility>
#include <vector>

namespace tolvane {
namespace {

constexpr const char* downloadVariable = "XDG_DOWNLOAD_DIR";

EnvironmentVariables currentEnvironment() {
    EnvironmentVariables variables;
    for (char** entry = ::environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text(*entry);
        const std::size_t sign = text.find('=');
        if (sign != std::string_view::npos) {
            variables.emplace(text.substr(0, sign), text.substr(sign + 1));
        }
    }
    return variables;
}

/// The home folder that the password database tells; "/" when it knows none.
std::string homeOfAccount() {
    constexpr std::size_t largeEnough = 65536;
    std::vector<char> buffer(largeEnough);
    passwd account{};
    passwd* found = nullptr;
    const int error = ::getpwuid_r(::getuid(), &account, buffer.data(), buffer.size(), &found);
    const bool isUsable = error == 0 && found != nullptr && found->pw_dir != nullptr &&
                          std::string_view(found->pw_dir).starts_with('/');
    return isUsable ? found->pw_dir : "/";
}

FileURL homeFolder(const EnvironmentVariables& environment) {
    const auto variable = environment.find("HOME");
    const bool isUsable = variable != environment.end() && variable->second.starts_with('/');
    return FileURL(isUsable ? variable->second : homeOfAccount()).standardized();
}

/// Atomic desktops keep the home folders in "/var/home" and link "/home" to it.
std::optional<std::string> aliasOfHomeFolders() {
    const std::string alias = "/var/home";
    char resolved[PATH_MAX];
    const bool isLinked = ::realpath("/home", resolved) != nullptr && alias == resolved;
    return isLinked ? std::optional(alias) : std::nullopt;
}

/// The value between the quotes of `NAME="value"`, its escapes undone; `$HOME` only at its start,
/// as the format has it. Absent when the line is no such assignment of an absolute path.
std::optional<std::string> folderAssigned(std::string_view line, std::string_view name,
                                          const FileURL& home) {
    constexpr std::string_view homeVariable = "$HOME";
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    const std::size_t end = line.rfind('"');
    if (!line.starts_with(std::string(name) + "=\"") || end <= name.size() + 1) {
        return std::nullopt;
    }
    std::string_view value = line.substr(name.size() + 2, end - name.size() - 2);
    std::string folder;
    if (liesWithin(value, homeVariable)) {
        folder = home.path();
        value.remove_prefix(homeVariable.size());
    } else if (!value.starts_with('/')) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool isEscape = value[i] == '\\' && i + 1 < value.size();
        folder += value[isEscape ? ++i : i];
    }
    return folder;
}

/// The download folder that the user's table of folders names (xdg-user-dirs); absent when it
/// names none, which it also says by naming the home folder itself.
std::optional<std::string> downloadFolder(const FileURL& table, const FileURL& home) {
    constexpr std::size_t largestTable = 1 << 20;
    const Result<Descriptor, SystemError> file = openPath(table.path(), O_RDONLY | O_NONBLOCK);
    const Result<std::string, SystemError> content =
        file ? readContents(*file, largestTable) : tl::unexpected(file.error());
    std::optional<std::string> folder;
    std::string_view rest = content ? std::string_view(*content) : std::string_view();
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        if (auto assigned = folderAssigned(rest.substr(0, end), downloadVariable, home)) {
            folder = std::move(assigned);
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    const bool isHome = folder && FileURL(*folder).standardized() == home;
    return isHome ? std::nullopt : folder;
}

}

HostLayout HostLayout::current() {
    EnvironmentVariables environment = currentEnvironment();
    HostLayout names;
    names.homeAlias = aliasOfHomeFolders();
    const FileURL home = names.underHome(homeFolder(environment));
    const FileURL config =
        freedesktop(home, environment).locations.userDefaultsFile.deletingLastPathComponent();
    const FileURL table = config.deletingLastPathComponent().appending("user-dirs.dirs");
    if (std::optional<std::string> folder = downloadFolder(table, home)) {
        environment[downloadVariable] = std::move(*folder);
    }
    for (auto& [name, value] : environment) {
        value = names.underHome(FileURL(value)).path();
    }
    HostLayout layout = freedesktop(home, environment);
    layout.homeAlias = names.homeAlias;
    return layout;
}

}
