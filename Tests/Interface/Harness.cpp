#include "Harness.h"

#include <HostKit/Trash.h>

#include <ControllerSupport/ControllerHome.h>
#include <Controllers/ShownText.h>
#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QPalette>
#include <QTest>
#include <algorithm>

namespace tolvane {
namespace {

constexpr int patience = 20'000;
constexpr int shortPatience = 3'000;

QPalette palette(Harness::Scheme scheme) {
    const bool isDark = scheme == Harness::Scheme::dark;
    QPalette palette;
    palette.setColor(QPalette::Window, isDark ? Qt::black : Qt::white);
    palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
    return palette;
}

/// The first visible item below `root`, itself included, that is wanted. Delegates are no children
/// in the sense of QObject.
QQuickItem* search(QQuickItem* root, const std::function<bool(const QQuickItem&)>& isWanted) {
    if (!root->isVisible()) {
        return nullptr;
    }
    if (isWanted(*root)) {
        return root;
    }
    for (QQuickItem* child : root->childItems()) {
        if (QQuickItem* const found = search(child, isWanted)) {
            return found;
        }
    }
    return nullptr;
}

HostLayout layoutOf(const TemporaryHome& home, const Harness::Setting& setting) {
    HostLayout layout = HostLayout::freedesktop(home.url(), {});
    if (setting.layout) {
        setting.layout(layout);
    }
    return layout;
}

QString textOf(const QQuickItem& item) {
    return item.property("text").toString();
}

}

Harness::Harness(const TemporaryHome& home, const Setting& setting)
    : layout_(layoutOf(home, setting))
    , appearance_(palette(setting.scheme)) {
    // Nothing is caught halfway on its way.
    appearance_.applySetting("org.gnome.desktop.interface", "enable-animations", false);
    std::shared_ptr<const FileManager> files = systemFileManager(layout_);
    if (setting.files) {
        files = setting.files(files);
    }
    app_.emplace(TolvaneApp::Host{layout_,
                                  std::move(files),
                                  systemTrash(layout_),
                                  workspace_,
                                  {"1.2.3", "45"},
                                  setting.clock});
    main_.emplace(*app_, appearance_);
    if (main_->window() == nullptr) {
        throw std::runtime_error("the window could not be made");
    }
    if (setting.size.isValid()) {
        main_->window()->resize(setting.size);
    }
    main_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(main_->window()));
    main_->window()->requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(main_->window()));
}

QQuickItem* Harness::find(const QString& objectName) {
    return wait([&objectName](const QQuickItem& item) { return item.objectName() == objectName; });
}

QQuickItem* Harness::find(const QString& objectName, const QString& within) {
    QQuickItem* const whole = find(within);
    return whole == nullptr ? nullptr : search(whole, [&objectName](const QQuickItem& item) {
        return item.objectName() == objectName;
    });
}

QQuickItem* Harness::itemNamed(const QString& name) {
    const FolderModel& folder = *controller().folder();
    return wait([&](const QQuickItem& item) {
        const bool isItem =
            item.objectName().startsWith("item") || item.objectName().startsWith("row");
        const QModelIndex index = folder.index(item.property("index").toInt());
        return isItem && index.isValid() && index.data(FolderModel::Name) == name;
    });
}

bool Harness::shows(const QString& text) {
    return wait([&text](const QQuickItem& item) { return textOf(item) == text; }) != nullptr;
}

QQuickItem* Harness::wait(const std::function<bool(const QQuickItem&)>& isWanted) {
    QQuickItem* found = nullptr;
    const auto look = [&] {
        found = search(window().contentItem(), isWanted);
        return found != nullptr;
    };
    return QTest::qWaitFor(look, shortPatience) ? found : nullptr;
}

QQuickItem* Harness::findEnabled(const QString& objectName) {
    return wait([&objectName](const QQuickItem& item) {
        return item.objectName() == objectName && item.isEnabled();
    });
}

void Harness::click(const QString& objectName) {
    QQuickItem* const item = findEnabled(objectName);
    ASSERT_NE(item, nullptr) << "nothing to click is called " << objectName.toStdString();
    click(item);
}

void Harness::click(QQuickItem* item, Qt::KeyboardModifiers modifiers) {
    ASSERT_NE(item, nullptr);
    QTest::mouseClick(&window(), Qt::LeftButton, modifiers,
                      item->mapToScene(item->boundingRect().center()).toPoint());
}

void Harness::doubleClick(QQuickItem* item) {
    ASSERT_NE(item, nullptr);
    const QPoint point = item->mapToScene(item->boundingRect().center()).toPoint();
    QTest::mouseDClick(&window(), Qt::LeftButton, {}, point);
}

void Harness::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&window(), key, modifiers);
}

void Harness::showModule(const QString& title) {
    const std::vector<QString> titles = texts(*app_->modules(), "title");
    const auto found = std::find(titles.begin(), titles.end(), title);
    ASSERT_NE(found, titles.end());
    press(static_cast<Qt::Key>(Qt::Key_1 + (found - titles.begin())), Qt::ControlModifier);
}

void Harness::type(const QString& text) {
    for (const QChar character : text) {
        QTest::keyClick(&window(), character.toLatin1());
    }
}

bool Harness::tabTo(const QString& objectName) {
    constexpr int mostStops = 60;
    if (findEnabled(objectName) == nullptr) {
        return false;
    }
    for (int stop = 0; stop < mostStops; ++stop) {
        const QQuickItem* const focused = window().activeFocusItem();
        if (focused != nullptr && focused->objectName() == objectName) {
            return true;
        }
        press(Qt::Key_Tab);
    }
    return false;
}

void Harness::drop(const std::vector<FileURL>& urls) {
    QMimeData data;
    QList<QUrl> links;
    for (const FileURL& url : urls) {
        links.append(qurl(url));
    }
    data.setUrls(links);
    const QPoint place(window().width() / 2, window().height() / 2);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &drop);
}

void Harness::scan(const FileURL& folder) {
    controller().scan(folder, "test");
    ASSERT_TRUE(eventually([this] {
        return controller().stage() == Ui::Stage::Result && !controller().isLoadingFolder();
    }));
}

bool Harness::eventually(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, patience);
}

QImage Harness::grab() {
    QTest::qWait(100);
    auto* const front = qobject_cast<QQuickWindow*>(QGuiApplication::focusWindow());
    return front == nullptr ? window().grabWindow() : front->grabWindow();
}

}
