#include <HostKit/TrashInfo.h>
#include <Support/OtherPrograms.h>
#include <Support/RunProgram.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace tolvane {
namespace {

namespace fs = std::filesystem;

/// Programs write what they like into the home; the run's own folder must be there and private.
std::map<std::string, std::string> environmentOf(const std::string& home) {
    const std::string runtime = home + "/.run";
    fs::create_directories(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    return {{"HOME", home},
            {"XDG_DATA_HOME", home + "/.local/share"},
            {"XDG_RUNTIME_DIR", runtime},
            {"LC_ALL", "C.UTF-8"}};
}

std::string unescaped(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "\\x") == 0) {
            bytes += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

std::vector<std::string> commandOn(std::vector<std::string> command,
                                   const std::vector<std::string>& paths) {
    command.insert(command.end(), paths.begin(), paths.end());
    return command;
}

}

std::optional<Gio> Gio::find(const std::string& home) {
    const Gio gio(home);
    const bool isThere =
        hasProgram("gio") && hasProgram("dbus-run-session") &&
        runProgram({"dbus-run-session", "--", "gio", "info", "trash:///"}, environmentOf(home))
                .status == 0;
    return isThere ? std::optional(gio) : std::nullopt;
}

ProgramRun Gio::run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"dbus-run-session", "--", "gio"});
    return runProgram(arguments, environmentOf(home_));
}

void Gio::trash(const std::vector<std::string>& paths) const {
    EXPECT_EQ(run(commandOn({"trash", "--"}, paths)).status, 0);
}

std::map<std::string, std::string> Gio::entries() const {
    const std::string output = run({"trash", "--list"}).output;
    std::map<std::string, std::string> list;
    for (std::size_t start = 0; start < output.size();) {
        const std::size_t tab = output.find('\t', start);
        const std::size_t end = output.find('\n', tab);
        list[output.substr(start, tab - start)] = unescaped(output.substr(tab + 1, end - tab - 1));
        start = end + 1;
    }
    return list;
}

std::vector<std::string> Gio::originalPaths() const {
    std::vector<std::string> paths;
    for (const auto& [address, path] : entries()) {
        paths.push_back(path);
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

void Gio::restoreAll() const {
    std::vector<std::string> addresses;
    for (const auto& [address, path] : entries()) {
        addresses.push_back(address);
    }
    run(commandOn({"trash", "--restore"}, addresses));
}

std::optional<TrashCli> TrashCli::find(const std::string& home) {
    const bool isThere =
        hasProgram("trash-put") && hasProgram("trash-list") && hasProgram("trash-restore");
    return isThere ? std::optional(TrashCli(home)) : std::nullopt;
}

std::string TrashCli::run(std::vector<std::string> arguments, const std::string& input) const {
    const ProgramRun result = runProgram(arguments, environmentOf(home_), input);
    EXPECT_EQ(result.status, 0) << arguments.front();
    return result.output;
}

void TrashCli::trash(const std::vector<std::string>& paths) const {
    run(commandOn({"trash-put", "--"}, paths));
}

std::vector<std::string> TrashCli::originalPaths(const std::string& folder) const {
    // A line is "DATE TIME PATH", but a path may hold line breaks: what begins a path is known.
    const std::string output = run({"trash-list"});
    const std::string start = folder + "/";
    constexpr std::size_t dateLength = 20;
    std::vector<std::string> paths;
    for (std::size_t at = output.find(start); at != std::string::npos;) {
        const std::size_t next = output.find(start, at + 1);
        const std::size_t end = (next == std::string::npos ? output.size() : next - dateLength) - 1;
        paths.push_back(output.substr(at, end - at));
        at = next;
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

void TrashCli::restoreAll(std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i) {
        run({"trash-restore", "/"}, "0\n");
    }
}

TreeState withoutEscapes(const TreeState& state) {
    TreeState plain;
    for (const auto& [path, description] : state) {
        plain[unescaped(path)] = description;
    }
    return plain;
}

std::vector<RemovalReceipt> receiptsFromTrash(const HostLayout& layout) {
    const FileURL& trash = layout.locations.homeTrash;
    std::vector<RemovalReceipt> receipts;
    for (const auto& entry : fs::directory_iterator(trash.appending("info").path())) {
        const FileURL item = trash.appending("files").appending(entry.path().stem().native());
        if (fs::symlink_status(item.path()).type() == fs::file_type::not_found) {
            continue;
        }
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        const std::optional<TrashInfo> info = TrashInfo::parse(text);
        EXPECT_TRUE(info) << item.path() << " has no valid info file";
        if (info) {
            receipts.push_back({freshIdentifier(), FileURL(info->path), item});
        }
    }
    return receipts;
}

bool trashIsEmpty(const HostLayout& layout) {
    const std::string trash = layout.locations.homeTrash.path();
    return fs::is_empty(trash + "/files") && fs::is_empty(trash + "/info");
}

}
