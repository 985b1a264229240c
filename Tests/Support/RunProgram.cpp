#include <Support/RunProgram.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace tolvane {
namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

[[noreturn]] void become(std::vector<std::string> arguments,
                         const std::map<std::string, std::string>& environment, int input,
                         int output) {
    for (const auto& [name, value] : environment) {
        ::setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);
    ::dup2(input, STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    ::execvp(pointers[0], pointers.data());
    ::_exit(127);
}

int exitStatus(int status) {
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

std::string contents(std::FILE* file) {
    std::string text;
    std::rewind(file);
    char buffer[4096];
    for (std::size_t count = 0; (count = std::fread(buffer, 1, sizeof buffer, file)) > 0;) {
        text.append(buffer, count);
    }
    return text;
}

}

ProgramRun runProgram(const std::vector<std::string>& arguments,
                      const std::map<std::string, std::string>& environment,
                      std::string_view input) {
    const File in(std::tmpfile(), &std::fclose);
    const File out(std::tmpfile(), &std::fclose);
    if (!input.empty()) {
        std::fwrite(input.data(), 1, input.size(), in.get());
    }
    std::rewind(in.get());
    const pid_t child = ::fork();
    if (child == 0) {
        become(arguments, environment, ::fileno(in.get()), ::fileno(out.get()));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return {exitStatus(status), contents(out.get())};
}

bool hasProgram(const std::string& name) {
    return runProgram({"sh", "-c", "command -v \"$0\"", name}).status == 0;
}

}
