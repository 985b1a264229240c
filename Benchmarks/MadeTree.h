#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// A tree of empty files for measurements, made once and kept between runs below
/// `$TOLVANE_BENCHMARK_TREES` (default: "tolvane-benchmark-trees" in the folder for temporary
/// files).
namespace MadeTree {

/// `files` files spread evenly over `folders` folders, which lie ten to a folder.
std::string spread(std::int64_t files, std::int64_t folders);
/// One folder of `files` files.
std::string flat(std::int64_t files);
/// A chain of folders, `levels` deep, each with `filesPerLevel` files.
std::string chain(std::int64_t levels, std::int64_t filesPerLevel);

}

}
