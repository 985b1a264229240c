#include <Components/ComponentsSetup.h>
#include <Components/IconProvider.h>

#include <QFont>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QtQml/QQmlEngineExtensionPlugin>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(Tolvane_ComponentsPlugin)

// Readies what the program's entry readies, and tells the tests the icons there are.
class Setup : public QObject {
    Q_OBJECT

  public:
    Setup() {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
    }

  public Q_SLOTS:
    void applicationAvailable() { QQuickStyle::setStyle(QStringLiteral("Basic")); }

    void qmlEngineAvailable(QQmlEngine* engine) {
        tolvane::readyComponents(*engine);
        engine->rootContext()->setContextProperty(QStringLiteral("iconNames"),
                                                  tolvane::IconProvider::names());
    }
};

QUICK_TEST_MAIN_WITH_SETUP(components, Setup)

#include "main.moc"
