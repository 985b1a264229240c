#include "Table.h"

#include <HostKit/Text.h>

#include <algorithm>
#include <utility>

namespace tolvane {

Table::Table(std::vector<Alignment> columns)
    : alignments_(std::move(columns))
    , widths_(alignments_.size(), 0) {}

void Table::add(std::vector<std::string> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        widths_[i] = std::max(widths_[i], characterCount(cells[i]));
    }
    rows_.push_back(std::move(cells));
}

std::string Table::text() const {
    std::string text;
    for (const std::vector<std::string>& cells : rows_) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const std::string padding(widths_[i] - characterCount(cells[i]), ' ');
            text += "  ";
            text += alignments_[i] == Alignment::right ? padding + cells[i] : cells[i] + padding;
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

}
