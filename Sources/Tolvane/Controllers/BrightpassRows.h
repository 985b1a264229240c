#pragma once

#include <BrightpassKit/BrightpassReport.h>
#include <Controllers/RecordModel.h>

#include <QString>
#include <vector>

namespace tolvane {

/// A line in one of the lists that a check comes to.
struct BrightpassRow {
    QString name;
    /// A path, or what the size is made of.
    QString note;
    QString sizeText;
    /// Of the list's total, 0 to 1.
    double share = 0;
    /// Whether there is anything to go to.
    bool isThere = true;
};

/// What the lists of a check show, and in which words it is told.
namespace BrightpassRows {

/// "name", "note", "sizeText", "share", "isThere", "accessibleText"; for the bar of the parts
/// "title" and "figure" too.
std::vector<RecordModel<BrightpassRow>::Role> roles();
QString key(const BrightpassRow& row);

std::vector<BrightpassRow> junk(const BrightpassReport& report);
std::vector<BrightpassRow> apps(const BrightpassReport& report);
/// The groups that waste most, as many as a person would look at.
std::vector<BrightpassRow> duplicates(const BrightpassReport& report);
/// The three parts as shares of the whole.
std::vector<BrightpassRow> parts(const BrightpassReport& report);

/// "Up to 1.2 GB can be reclaimed"
QString headline(const BrightpassReport& report);
/// "Checked in 2.1 s", "Stopped after 2.1 s"
QString elapsed(const BrightpassReport& report, bool isPartial);
/// "12 applications"
QString appsSummary(const BrightpassReport& report, bool isPartial);
/// "12 groups in Downloads"
QString duplicatesSummary(const BrightpassReport& report, bool isPartial);

}
}
