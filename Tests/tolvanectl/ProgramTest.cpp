#include "ProgramTest.h"

#include <HostKit/Text.h>
#include <Support/RunProgram.h>

#include <fcntl.h>
#include <openssl/evp.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace tolvane {

nlohmann::json CommandResult::json() const {
    constexpr bool throws = false;
    nlohmann::json document = nlohmann::json::parse(output, nullptr, throws);
    EXPECT_FALSE(document.is_discarded()) << output << complaint;
    return document;
}

CommandResult ProgramTest::run(const Arguments& arguments, std::string_view input) const {
    return runIn("exec \"$@\"", arguments, input);
}

CommandResult ProgramTest::runIn(const std::string& script, const Arguments& arguments,
                                 std::string_view input) const {
    const std::map<std::string, std::string> environment{
        {"HOME", home.path("")},
        {"XDG_DATA_HOME", home.path(".local/share")},
        {"XDG_STATE_HOME", home.path(".local/state")},
        {"XDG_CONFIG_HOME", home.path(".config")},
        {"XDG_CACHE_HOME", home.path(".cache")},
        {"COMPLAINTS", aside.path("complaints")}};
    std::vector<std::string> words{"sh", "-c", "cd && exec 2>\"$COMPLAINTS\"; " + script, "sh",
                                   TOLVANECTL};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const ProgramRun result = runProgram(words, environment, input);
    return {result.status, result.output, aside.read("complaints")};
}

CommandResult ProgramTest::runSignalled(int signal, const Arguments& arguments) const {
    sigset_t blocked;
    sigset_t before;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, signal);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    CommandResult result = runIn("kill -" + std::to_string(signal) + " $$; exec \"$@\"", arguments);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return result;
}

std::string ProgramTest::shownOnTerminal(int stream, const std::string& environment,
                                         const Arguments& arguments) const {
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_TRUE(::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
    const std::string name = ::ptsname(terminal);
    // Keeps what was written there until it is read.
    const int other = ::open(name.c_str(), O_RDWR | O_NOCTTY);
    const winsize size{.ws_row = 24, .ws_col = 80, .ws_xpixel = 0, .ws_ypixel = 0};
    ::ioctl(other, TIOCSWINSZ, &size);
    runIn(environment + " exec \"$@\" " + std::to_string(stream) + ">" + name, arguments);
    char buffer[4096];
    ::fcntl(terminal, F_SETFL, O_NONBLOCK);
    const ssize_t count = ::read(terminal, buffer, sizeof buffer);
    ::close(other);
    ::close(terminal);
    return count > 0 ? std::string(buffer, static_cast<std::size_t>(count)) : "";
}

std::string base64(std::string_view bytes) {
    std::vector<unsigned char> text(bytes.size() / 3 * 4 + 5);
    const int length =
        EVP_EncodeBlock(text.data(), reinterpret_cast<const unsigned char*>(bytes.data()),
                        static_cast<int>(bytes.size()));
    return {text.begin(), text.begin() + length};
}

bool tellsPath(const nlohmann::json& object, const std::string& key, const std::string& path) {
    const std::string keyOfBytes = key + "Bytes";
    if (isValidUTF8(path)) {
        return object.at(key) == path && !object.contains(keyOfBytes);
    }
    return object.at(key) == displayText(path) && object.at(keyOfBytes) == base64(path);
}

}
