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

}

ProgramRun runChild(const std::function<void(std::FILE* output)>& work) {
    const File out(std::tmpfile(), &std::fclose);
    const pid_t child = ::fork();
    if (child == 0) {
        work(out.get());
        std::fflush(out.get());
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ProgramRun run{WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status), {}};
    std::rewind(out.get());
    char buffer[4096];
    for (std::size_t count = 0; (count = std::fread(buffer, 1, sizeof buffer, out.get())) > 0;) {
        run.output.append(buffer, count);
    }
    return run;
}

ProgramRun runProgram(const std::vector<std::string>& arguments,
                      const std::map<std::string, std::string>& environment,
                      std::string_view input) {
    const File in(std::tmpfile(), &std::fclose);
    // An empty view may hold no pointer, which fwrite does not take.
    if (!input.empty()) {
        std::fwrite(input.data(), 1, input.size(), in.get());
    }
    std::rewind(in.get());
    return runChild([&](std::FILE* output) {
        become(arguments, environment, ::fileno(in.get()), ::fileno(output));
    });
}

bool hasProgram(const std::string& name) {
    return runProgram({"sh", "-c", "command -v \"$0\"", name}).status == 0;
}

}
