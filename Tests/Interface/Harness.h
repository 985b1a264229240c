#pragma once

#include <Support/TemporaryHome.h>

#include <ControllerSupport/RecordingWorkspace.h>
#include <Interface/Appearance.h>
#include <Interface/MainWindow.h>
#include <Interface/TolvaneApp.h>

#include <QQuickItem>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tolvane {

/// The application in its window, on a home folder of its own, and hands to work it with: they
/// press where a person would press and read what a person would read.
class Harness {
  public:
    using Decorator =
        std::function<std::shared_ptr<const FileManager>(std::shared_ptr<const FileManager> files)>;
    enum class Scheme { light, dark };
    struct Setting {
        /// Stands before the file system.
        Decorator files = {};
        /// Changes the machine's places and tables.
        std::function<void(HostLayout& layout)> layout = {};
        /// What spans of time are measured with.
        Clock clock = steadyTime;
        Scheme scheme = Scheme::light;
        /// Invalid: as the window wants it.
        QSize size = {};
    };

    explicit Harness(const TemporaryHome& home)
        : Harness(home, Setting()) {}
    Harness(const TemporaryHome& home, const Setting& setting);

    TolvaneApp& app() { return *app_; }
    ScanViewModel& controller() { return app_->spaceAnalysis(); }
    RecordingWorkspace& workspace() { return workspace_; }
    const HostLayout& layout() const { return layout_; }
    QQuickWindow& window() { return *main_->window(); }

    /// Looks for a while; null when no visible item bears the name.
    QQuickItem* find(const QString& objectName);
    /// The same within another item.
    QQuickItem* find(const QString& objectName, const QString& within);
    /// The item of the folder on screen that shows this name.
    QQuickItem* itemNamed(const QString& name);
    bool shows(const QString& text);

    void click(const QString& objectName);
    void click(QQuickItem* item, Qt::KeyboardModifiers modifiers = {});
    void doubleClick(QQuickItem* item);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void type(const QString& text);
    /// Tabs until the item has the focus; whether it ever got it.
    bool tabTo(const QString& objectName);
    void drop(const std::vector<FileURL>& urls);

    /// By the keys that a person would press; fails the test when there is no such module.
    void showModule(const QString& title);
    /// Scans and waits for the result.
    void scan(const FileURL& folder);
    /// Whether it came true within a generous time.
    static bool eventually(const std::function<bool()>& condition);
    /// The window in front, after everything was laid out and drawn.
    QImage grab();

  private:
    QQuickItem* wait(const std::function<bool(const QQuickItem&)>& isWanted);
    QQuickItem* findEnabled(const QString& objectName);

    const HostLayout layout_;
    RecordingWorkspace workspace_;
    Appearance appearance_;
    std::optional<TolvaneApp> app_;
    std::optional<MainWindow> main_;
};

}
