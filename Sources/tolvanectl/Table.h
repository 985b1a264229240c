#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tolvane {

enum class Alignment { left, right };

/// Rows of text whose cells stand below each other.
class Table {
  public:
    explicit Table(std::vector<Alignment> columns);

    /// As many cells as there are columns.
    void add(std::vector<std::string> cells);
    /// Every row with two blanks in front of each cell and none at its end.
    std::string text() const;

  private:
    std::vector<Alignment> alignments_;
    std::vector<std::size_t> widths_;
    std::vector<std::vector<std::string>> rows_;
};

}
