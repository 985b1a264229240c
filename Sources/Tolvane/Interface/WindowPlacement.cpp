#include <Interface/WindowPlacement.h>

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <optional>

namespace tolvane {
namespace {

constexpr std::chrono::milliseconds savingDelay{500};
constexpr const char* key = "window.placement";

std::optional<QRect> rectangle(const QVariantMap& map) {
    const auto number = [&map](const char* name) -> std::optional<int> {
        bool isNumber = false;
        const int value = map.value(name).toInt(&isNumber);
        return isNumber ? std::optional(value) : std::nullopt;
    };
    const std::optional<int> x = number("x");
    const std::optional<int> y = number("y");
    const std::optional<int> width = number("width");
    const std::optional<int> height = number("height");
    if (!x || !y || !width || !height) {
        return std::nullopt;
    }
    return QRect(*x, *y, *width, *height);
}

/// The screen that shows the middle of `place`, else the first one.
const QScreen* screenShowing(const QRect& place) {
    const QScreen* const found = QGuiApplication::screenAt(place.center());
    return found != nullptr ? found : QGuiApplication::primaryScreen();
}

int fittedPosition(int wanted, int length, int first, int available) {
    return std::max(first, std::min(wanted, first + available - length));
}

}

WindowPlacement::WindowPlacement(QWindow& window, UserDefaults& defaults)
    : window_(window)
    , defaults_(defaults) {
    saving_.setSingleShot(true);
    saving_.setInterval(savingDelay);
    connect(&saving_, &QTimer::timeout, this, &WindowPlacement::save);
    restore();
    usual_ = window_.geometry();
    connect(&window_, &QWindow::xChanged, this, &WindowPlacement::noteChange);
    connect(&window_, &QWindow::yChanged, this, &WindowPlacement::noteChange);
    connect(&window_, &QWindow::widthChanged, this, &WindowPlacement::noteChange);
    connect(&window_, &QWindow::heightChanged, this, &WindowPlacement::noteChange);
    connect(&window_, &QWindow::windowStateChanged, this, &WindowPlacement::noteChange);
}

WindowPlacement::~WindowPlacement() {
    if (saving_.isActive()) {
        save();
    }
}

QRect WindowPlacement::fitted(const QRect& wanted, const QRect& screen, const QSize& smallest) {
    const QSize size = wanted.size().boundedTo(screen.size()).expandedTo(smallest);
    return {fittedPosition(wanted.x(), size.width(), screen.x(), screen.width()),
            fittedPosition(wanted.y(), size.height(), screen.y(), screen.height()), size.width(),
            size.height()};
}

void WindowPlacement::restore() {
    const QVariantMap map = defaults_.map(key);
    const std::optional<QRect> wanted = rectangle(map);
    const QScreen* const screen = screenShowing(wanted.value_or(QRect()));
    if (!wanted || screen == nullptr) {
        return;
    }
    window_.setGeometry(fitted(*wanted, screen->availableGeometry(), window_.minimumSize()));
    if (map.value("isMaximized").toBool()) {
        window_.setWindowState(Qt::WindowMaximized);
    }
}

void WindowPlacement::noteChange() {
    if (window_.windowState() == Qt::WindowNoState) {
        usual_ = window_.geometry();
    }
    saving_.start();
}

void WindowPlacement::save() {
    defaults_.set(key, QVariantMap{{"x", usual_.x()},
                                   {"y", usual_.y()},
                                   {"width", usual_.width()},
                                   {"height", usual_.height()},
                                   {"isMaximized", window_.windowState() == Qt::WindowMaximized}});
}

}
