#include <Components/ComponentsSetup.h>
#include <Interface/TolvaneApp.h>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QtQml/QQmlEngineExtensionPlugin>

Q_IMPORT_QML_PLUGIN(TolvanePlugin)
Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    QQuickStyle::setStyle("Basic");
    tolvane::TolvaneApp app;
    QQmlApplicationEngine engine;
    tolvane::readyComponents(engine);
    engine.setInitialProperties({{"app", QVariant::fromValue(&app)}});
    engine.load(QUrl("qrc:/Tolvane/RootView.qml"));
    return QGuiApplication::exec();
}
