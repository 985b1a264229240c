#pragma once

#include <HostKit/FileURL.h>

#include <QString>
#include <functional>

namespace tolvane {

/// A pane of the desktop's own settings.
enum class SettingsPane { fullDiskAccess, loginItems };

/// The seam between the controllers and the desktop. For the main thread; every call returns at
/// once.
class Workspace {
  public:
    virtual ~Workspace() = default;

    /// Lets a person choose a folder, beginning at `start`; `onChosen` is not called when they
    /// cancel. A second call replaces the first.
    virtual void chooseFolder(const QString& title, const FileURL& start,
                              std::function<void(const FileURL&)> onChosen) = 0;
    /// Shows the item in the file manager.
    virtual void reveal(const FileURL& url) = 0;
    /// Opens the item in the application it belongs to.
    virtual void open(const FileURL& url) = 0;
    virtual void openSettingsPane(SettingsPane pane) = 0;
    virtual void copyText(const QString& text) = 0;
    /// Starts another instance and ends this one.
    virtual void relaunch() = 0;
};

}
