#pragma once

#include <Controllers/Workspace.h>

#include <QString>
#include <optional>
#include <vector>

namespace tolvane {

/// A desktop that answers at once and remembers what it was asked.
class TestWorkspace final : public Workspace {
  public:
    void chooseFolder(const QString& title, const FileURL& start,
                      std::function<void(const FileURL&)> onChosen) override {
        static_cast<void>(title);
        static_cast<void>(start);
        if (folder) {
            onChosen(*folder);
        }
    }
    void reveal(const FileURL& url) override { revealed.push_back(url); }
    void open(const FileURL& url) override { opened.push_back(url); }
    void openSettingsPane(SettingsPane pane) override { panes.push_back(pane); }
    void copyText(const QString& text) override { copied = text; }
    void relaunch() override { relaunches += 1; }

    /// What the person chooses; absent: they cancel.
    std::optional<FileURL> folder;
    std::vector<FileURL> revealed;
    std::vector<FileURL> opened;
    std::vector<SettingsPane> panes;
    QString copied;
    int relaunches = 0;
};

}
