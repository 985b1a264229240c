#include <Components/ComponentsSetup.h>
#include <Components/FigureFont.h>
#include <Components/IconProvider.h>

#include <QQmlEngine>

namespace tolvane {

void readyComponents(QQmlEngine& engine) {
    figureFont::install();
    engine.addImportPath(QStringLiteral("qrc:/"));
    engine.addImageProvider(QStringLiteral("icon"), new IconProvider);
}

}
