#pragma once

#include <Controllers/UserDefaults.h>

#include <QObject>
#include <QRect>
#include <QTimer>
#include <QWindow>

namespace tolvane {

/// Remembers where a window stood and how large it was, and puts it there again.
class WindowPlacement : public QObject {
    Q_OBJECT

  public:
    /// Puts `window` where the last one was, as far as screens are there to show it. Both must
    /// outlive this.
    WindowPlacement(QWindow& window, UserDefaults& defaults);
    /// Remembers a change that has just been made, too.
    ~WindowPlacement() override;
    WindowPlacement(const WindowPlacement&) = delete;
    WindowPlacement& operator=(const WindowPlacement&) = delete;

    /// `wanted`, no larger than `screen` nor smaller than `smallest`, moved to where all of it can
    /// be seen.
    static QRect fitted(const QRect& wanted, const QRect& screen, const QSize& smallest);

  private:
    void restore();
    void noteChange();
    void save();

    QWindow& window_;
    UserDefaults& defaults_;
    /// Of the window when it is neither maximized nor minimized.
    QRect usual_;
    QTimer saving_;
};

}
