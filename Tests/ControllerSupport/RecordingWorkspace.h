#pragma once

#include <Controllers/Workspace.h>

#include <functional>
#include <vector>

namespace tolvane {

/// A desktop that does nothing but remember what it was asked for.
class RecordingWorkspace final : public Workspace {
  public:
    void chooseFolder(const QString& title, const FileURL& start,
                      std::function<void(const FileURL&)> onChosen) override {
        choosingTitle = title;
        choosingStart = start;
        choose = std::move(onChosen);
    }
    void reveal(const FileURL& url) override { revealed.push_back(url); }
    void open(const FileURL& url) override { opened.push_back(url); }
    void openSettingsPane(SettingsPane pane) override { panes.push_back(pane); }
    void copyText(const QString& text) override { copied.push_back(text); }
    void relaunch() override { ++relaunches; }

    QString choosingTitle;
    FileURL choosingStart;
    /// Answers the folder chooser; empty when none was asked for.
    std::function<void(const FileURL&)> choose;
    std::vector<FileURL> revealed;
    std::vector<FileURL> opened;
    std::vector<SettingsPane> panes;
    std::vector<QString> copied;
    int relaunches = 0;
};

}
