#pragma once

#include <Interface/Appearance.h>
#include <Interface/TolvaneApp.h>
#include <Interface/WindowPlacement.h>

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <optional>

namespace tolvane {

/// The one window of the program.
class MainWindow {
  public:
    /// Both must outlive this.
    MainWindow(TolvaneApp& app, Appearance& appearance);

    /// Null when the window could not be made; the reasons went to the standard error.
    QQuickWindow* window() const { return window_; }
    /// Shows the window where it was the last time.
    void show();

    /// What must be said to Qt before the first window is made: style, font, names.
    static void prepareApplication();
    /// Has this program draw, not the libraries that stand in for a graphics processor: they take
    /// twice the memory and time. Before the first window; what the user chose for Qt counts more.
    static void drawWithoutGraphicsProcessor();

  private:
    QQmlApplicationEngine engine_;
    QQuickWindow* window_ = nullptr;
    UserDefaults& defaults_;
    std::optional<WindowPlacement> placement_;
};

}
