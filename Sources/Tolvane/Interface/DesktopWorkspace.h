#pragma once

#include <HostKit/HostLayout.h>

#include <Controllers/FolderChooser.h>
#include <Controllers/Workspace.h>

namespace tolvane {

/// The desktop that the program runs on.
class DesktopWorkspace final : public Workspace {
  public:
    explicit DesktopWorkspace(HostLayout::Locations locations);

    /// Where folders are chosen, as long as anybody asks; nowhere before this was called.
    void chooseWith(FolderChooser* chooser);

    void chooseFolder(const QString& title, const FileURL& start,
                      std::function<void(const FileURL&)> onChosen) override;
    void reveal(const FileURL& url) override;
    void open(const FileURL& url) override;
    void openSettingsPane(SettingsPane pane) override;
    void copyText(const QString& text) override;
    void relaunch() override;

  private:
    const HostLayout::Locations locations_;
    FolderChooser* chooser_ = nullptr;
};

}
