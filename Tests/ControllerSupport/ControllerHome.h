#pragma once

#include <Support/TemporaryHome.h>

#include <ControllerSupport/RecordingWorkspace.h>
#include <Controllers/Environment.h>
#include <Controllers/MainThreadWorkers.h>

#include <QAbstractItemModel>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tolvane {

/// A temporary home with everything that controllers work with: the real file manager and Trash, a
/// log and defaults of its own, real workers, and a desktop that only remembers. Needs a
/// QCoreApplication; to be destroyed after the controllers.
class ControllerHome : public TemporaryHome {
  public:
    ControllerHome();
    using TemporaryHome::url;

    const Environment& environment() const { return environment_; }
    /// The same with another Trash.
    Environment environmentWith(std::shared_ptr<const Trash> other) const;
    /// All that the log says by now.
    std::string logText();
    /// How often the log says `text`.
    std::ptrdiff_t logged(const std::string& text);

    const HostLayout layout;
    const std::shared_ptr<const FileManager> files;
    const std::shared_ptr<const Trash> trash;
    AppLog log;
    UserDefaults defaults;
    RecordingWorkspace workspace;

  private:
    MainThreadWorkers workers_;
    AccessStatus access_;
    const Environment environment_;
};

/// Lets the event loop run until `isDone`; fails the test when that takes far too long.
void waitUntil(const std::function<bool()>& isDone);
/// Lets everything arrive that has been posted by now.
void processEvents();
/// What every row of a list says in one of its roles.
std::vector<QString> texts(const QAbstractItemModel& model, const QByteArray& role);

}
