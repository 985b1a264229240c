#pragma once

#include <HostKit/HostLayout.h>

#include <Controllers/Workspace.h>
#include <Interface/FolderChooser.h>

namespace tolvane {

/// The desktop that the program runs on.
class DesktopWorkspace final : public Workspace {
  public:
    /// `chooser` must outlive this.
    DesktopWorkspace(HostLayout::Locations locations, FolderChooser& chooser);

    void chooseFolder(const QString& title, const FileURL& start,
                      std::function<void(const FileURL&)> onChosen) override;
    void reveal(const FileURL& url) override;
    void open(const FileURL& url) override;
    void openSettingsPane(SettingsPane pane) override;
    void copyText(const QString& text) override;
    void relaunch() override;

  private:
    const HostLayout::Locations locations_;
    FolderChooser& chooser_;
};

}
