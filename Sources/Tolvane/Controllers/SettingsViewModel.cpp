#include <Services/Diagnostics.h>

#include <Controllers/SettingsViewModel.h>
#include <Controllers/ShownText.h>

#include <utility>

namespace tolvane {
namespace {

QString known(const std::string& text) {
    return text.empty() ? QStringLiteral("Unknown") : shownText(text);
}

std::vector<RecordModel<FileURL>::Role> roles() {
    return {{"name", [](const FileURL& report) { return shownText(report.lastPathComponent()); }},
            {"pathText", [](const FileURL& report) { return shownPath(report); }}};
}

/// The log is text already; marks that turn its direction and control characters but the ends of
/// lines are shown as what they are.
QString shownLog(const std::string& text) {
    QStringList lines;
    for (const QString& line : QString::fromStdString(text).split(u'\n')) {
        lines.append(shownText(line.toStdString()));
    }
    return lines.join(u'\n');
}

}

SettingsViewModel::SettingsViewModel(const Environment& environment, const Program& program)
    : environment_(environment)
    , versionText_(known(program.version))
    , buildText_(known(program.build))
    , reports_(roles(), [](const FileURL& report) { return qurl(report).toString(); })
    , reading_(environment.workers, 0, {},
               [this](Findings findings) { show(std::move(findings)); }) {}

SettingsViewModel::~SettingsViewModel() = default;

QString SettingsViewModel::logPath() const {
    return shownPath(environment_.log.fileURL());
}

void SettingsViewModel::appeared() {
    environment_.access.refresh();
    refresh();
}

void SettingsViewModel::refresh() {
    // The log outlives the workers.
    reading_.start([&log = environment_.log, locations = environment_.layout.locations,
                    files = environment_.files](const auto&, const auto&) {
        const Diagnostics diagnostics(locations, log, files);
        return Findings{diagnostics.recentCrashReports(reportDays), diagnostics.logTail(tailBytes)};
    });
}

void SettingsViewModel::show(Findings findings) {
    noReportsText_ = findings.reports.empty()
                         ? QStringLiteral("No crash reports of the last %1 days").arg(reportDays)
                         : QString();
    reports_.update(std::move(findings.reports));
    logTail_ = shownLog(findings.tail);
    Q_EMIT logTailShown();
}

void SettingsViewModel::revealLog() {
    environment_.workspace.reveal(environment_.log.fileURL());
}

void SettingsViewModel::revealReport(int row) {
    if (const FileURL* const report = reports_.record(row)) {
        environment_.workspace.reveal(*report);
    }
}

}
