#pragma once

#include <string>
#include <vector>

namespace tolvane {

/// Names that a file may bear and that have broken programs: line breaks, bytes that are no UTF-8,
/// escapes of other formats, options, markup, marks that turn the direction of writing, and the
/// longest there are.
inline std::vector<std::string> oddNames() {
    std::vector<std::string> names{"line\nbreak",
                                   "\n",
                                   "not \xff UTF-8 \xc3",
                                   "\x80\x80\x80\x80",
                                   "%20",
                                   "50%",
                                   "%00",
                                   "#?&;+=:@",
                                   "-rf",
                                   "--",
                                   "<img src=x>",
                                   "a\u202egnp.exe",
                                   "\u2066\u200f\u2069",
                                   "cafe\u0301",
                                   "caf\u00e9",
                                   " leading and trailing ",
                                   "tab\tbell\a\x1b[31m",
                                   "back\\slash \"quoted\" 'name'",
                                   "$(touch x) `touch y`",
                                   "...",
                                   ".hidden.tar.gz",
                                   "[Trash Info]\nPath=elsewhere"};
    names.insert(names.end(), {std::string(255, 'n'), "a." + std::string(253, 'e'), ""});
    while (names.back().size() < 255) {
        names.back() += "\u20ac";
    }
    return names;
}

}
