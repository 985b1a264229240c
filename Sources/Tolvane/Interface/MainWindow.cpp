#include <Components/ComponentsSetup.h>
#include <Interface/ApplicationIconProvider.h>
#include <Interface/MainWindow.h>

#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QQuickStyle>

namespace tolvane {
namespace {

/// By which the desktop finds the entry of a running window; the icon bears its name, too.
constexpr auto applicationId = "org.tolvane.Tolvane";
constexpr int textSize = 14;

/// Family and size must both be set before anything is loaded, or different places use different
/// fonts. What Inter lacks the desktop's own fonts give.
QFont interfaceFont() {
    const QFont desktopFont = QGuiApplication::font();
    QFont font(QStringList{"Inter", desktopFont.family()});
    font.setPixelSize(textSize);
    return font;
}

}

MainWindow::MainWindow(TolvaneApp& app, Appearance& appearance)
    : defaults_(app.defaults()) {
    readyComponents(engine_);
    engine_.addImageProvider("application", new ApplicationIconProvider(app.files()));
    engine_.setInitialProperties(
        {{"app", QVariant::fromValue(&app)}, {"appearance", QVariant::fromValue(&appearance)}});
    engine_.load(QUrl("qrc:/Tolvane/RootView.qml"));
    if (!engine_.rootObjects().isEmpty()) {
        window_ = qobject_cast<QQuickWindow*>(engine_.rootObjects().constFirst());
    }
}

void MainWindow::show() {
    placement_.emplace(*window_, defaults_);
    window_->setVisible(true);
}

void MainWindow::prepareApplication() {
    QQuickStyle::setStyle("Basic");
    QGuiApplication::setApplicationName("Tolvane");
    QGuiApplication::setApplicationDisplayName("Tolvane");
    QGuiApplication::setApplicationVersion(TOLVANE_VERSION);
    QGuiApplication::setOrganizationName("Tolvane");
    QGuiApplication::setDesktopFileName(applicationId);
    QGuiApplication::setWindowIcon(
        QIcon(QStringLiteral(":/Tolvane/%1.svg").arg(QLatin1String(applicationId))));
    QGuiApplication::setFont(interfaceFont());
}

void MainWindow::drawWithoutGraphicsProcessor() {
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
}

}
