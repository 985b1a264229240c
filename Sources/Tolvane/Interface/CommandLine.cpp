#include <Interface/CommandLine.h>

#include <string_view>

namespace tolvane {
namespace {

void readFolder(CommandLine& line, std::string_view argument) {
    if (argument.empty()) {
        line.error = "The name of a folder is empty";
    } else if (line.folder) {
        line.error = "Only one folder can be shown";
    } else {
        line.folder = std::string(argument);
    }
}

void readOption(CommandLine& line, std::string_view argument) {
    if (argument == "--help" || argument == "-h") {
        line.wish = CommandLine::Wish::help;
    } else if (argument == "--version") {
        line.wish = CommandLine::Wish::version;
    } else {
        line.error = "There is no option \"" + std::string(argument) + "\"";
    }
}

}

CommandLine CommandLine::parse(int count, const char* const* arguments) {
    CommandLine line;
    bool areOptionsOver = false;
    for (int position = 1; position < count && line.error.empty(); ++position) {
        const std::string_view argument = arguments[position];
        if (!areOptionsOver && argument == "--") {
            areOptionsOver = true;
        } else if (!areOptionsOver && argument.starts_with('-')) {
            readOption(line, argument);
        } else {
            readFolder(line, argument);
        }
    }
    return line;
}

}
