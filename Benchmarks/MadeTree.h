#pragma once

#include <cstdint>
#include <string>

namespace tolvane {

/// A tree for measurements, of empty files where nothing else is said, made once and kept between
/// runs below
/// `$TOLVANE_BENCHMARK_TREES` (default: "tolvane-benchmark-trees" in the folder for temporary
/// files).
namespace MadeTree {

/// `files` files spread evenly over `folders` folders, which lie ten to a folder.
std::string spread(std::int64_t files, std::int64_t folders);
/// One folder of `files` files.
std::string flat(std::int64_t files);
/// A chain of folders, `levels` deep, each with `filesPerLevel` files.
std::string chain(std::int64_t levels, std::int64_t filesPerLevel);
/// One folder of `files` files of eight bytes, no two of them equal.
std::string numbered(std::int64_t files);
/// One folder of `files` files in pairs of equal ones, of so many sizes.
std::string pairs(std::int64_t files, std::int64_t sizes);
/// `files` files of 1 to 512 KiB, 80 KiB on average, in folders of 100. Of ten, three are copies of
/// two others, one has only its size in common with one of these and one its head and tail as well.
std::string copies(std::int64_t files);

}

}
