#pragma once

#include <Components/ComponentsSetup.h>
#include <Components/IconProvider.h>

#include <QObject>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickStyle>

namespace tolvane {

/// Readies what the program's entry readies, and tells the tests the icons there are.
class QuickTestSetup : public QObject {
    Q_OBJECT

  public:
    QuickTestSetup() {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
    }

    // The names by which Qt Quick Test calls them.
    Q_INVOKABLE static void applicationAvailable() {
        QQuickStyle::setStyle(QStringLiteral("Basic"));
    }
    Q_INVOKABLE static void qmlEngineAvailable(QQmlEngine* engine) {
        readyComponents(*engine);
        engine->rootContext()->setContextProperty(QStringLiteral("iconNames"),
                                                  IconProvider::names());
    }
};

}
