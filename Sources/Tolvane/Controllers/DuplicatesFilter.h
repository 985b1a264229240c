#pragma once

#include <DuplicatesKit/DuplicateGroup.h>

#include <QString>
#include <string>

namespace tolvane {

/// Finds a text in the paths of duplicates, case ignored, as people see both.
class DuplicatesFilter {
  public:
    explicit DuplicatesFilter(const QString& wanted);

    /// Whether the path of any of its files has the text.
    bool accepts(const DuplicateGroup& group) const;

  private:
    bool accepts(const FileURL& url) const;

    const QString wanted_;
    /// In lower case; empty when bytes do not do.
    const std::string bytes_;
};

}
