#pragma once

#include <Support/TemporaryHome.h>
#include <Support/TreeState.h>

#include <string>
#include <vector>

namespace tolvane {

/// Gives every module that reads files something of its own.
inline void fillWholeHome(const TemporaryHome& home) {
    home.write("data/goes", std::string(50'000, 'g'));
    home.write("data/stays/file", "stays");
    const std::string bundle = "Applications/org.example.paint.AppDir/";
    home.write(bundle + "AppRun", "#!/bin/sh\n");
    home.write(bundle + "org.example.paint.desktop", "[Desktop Entry]\nName=Paint\nExec=AppRun\n");
    home.write(".config/org.example.paint/settings", "s");
    home.write(".cache/org.example.paint/tiles", std::string(50'000, 't'));
    for (const char* const copy : {"Copies/one", "Copies/two", "Downloads/1", "Downloads/2"}) {
        home.write(copy, std::string(1'100'000, 'c'));
    }
}

/// All of that, byte for byte.
inline std::vector<TreeState> wholeState(const TemporaryHome& home) {
    std::vector<TreeState> states;
    for (const char* const folder : {"data", "Applications", ".config/org.example.paint",
                                     ".cache/org.example.paint", "Copies", "Downloads"}) {
        states.push_back(treeState(home.path(folder)));
    }
    return states;
}

}
