#include <HostKit/PropertyList.h>
#include <PerformanceKit/StartupFolderReader.h>

#include <algorithm>
#include <utility>

namespace tolvane {
namespace {

std::optional<std::string> stringAt(const PropertyList& list, std::string_view key) {
    const PropertyList* const found = list.at(key);
    const std::string* const text = found != nullptr ? found->string() : nullptr;
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

/// The first of the arguments, provided that they are nothing but strings.
std::optional<std::string> firstArgument(const PropertyList& list) {
    const PropertyList* const found = list.at("ProgramArguments");
    const PropertyList::List* const arguments = found != nullptr ? found->list() : nullptr;
    const bool areStrings =
        arguments != nullptr && !arguments->empty() &&
        std::all_of(arguments->begin(), arguments->end(),
                    [](const PropertyList& argument) { return argument.string() != nullptr; });
    return areStrings ? std::optional(*arguments->front().string()) : std::nullopt;
}

StartupAgent agentFrom(const PropertyList& list, const std::string& fileName) {
    StartupAgent agent;
    agent.label = stringAt(list, "Label").value_or(withoutExtension(fileName));
    agent.program = stringAt(list, "Program");
    if (!agent.program) {
        agent.program = firstArgument(list);
    }
    const PropertyList* const runAtLoad = list.at("RunAtLoad");
    agent.runAtLoad = runAtLoad != nullptr && runAtLoad->boolean().value_or(false);
    return agent;
}

}

std::vector<StartupAgent> StartupFolderReader::launchAgents() const {
    std::vector<StartupAgent> agents;
    for (const std::string& name : names(url, "plist")) {
        if (shouldStop()) {
            break;
        }
        const FileURL file = url.appending(name);
        // One more byte, so that a file that is too large does not pass as its beginning.
        const auto bytes = files.read(file, PropertyList::largestSize + 1);
        const auto list = bytes ? PropertyList::parse(*bytes) : std::nullopt;
        if (list && list->dictionary() != nullptr) {
            StartupAgent agent = agentFrom(*list, name);
            agent.url = file;
            agent.scope = folder.scope;
            agents.push_back(std::move(agent));
        }
    }
    return agents;
}

}
