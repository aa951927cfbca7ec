#include "views/RendererChoice.h"

#include <QDir>
#include <QQuickWindow>
#include <QSGRendererInterface>

#include <algorithm>

namespace hmatnik {

using namespace Qt::StringLiterals;

bool RendererChoice::drawsBetterInSoftware(const QString &deviceFolder)
{
    const QFileInfoList nodes =
        QDir(deviceFolder).entryInfoList({u"renderD*"_s}, QDir::Files | QDir::System);
    return std::ranges::none_of(
        nodes, [](const QFileInfo &node) { return node.isReadable() && node.isWritable(); });
}

void RendererChoice::apply()
{
    if (qEnvironmentVariableIsSet("QT_QUICK_BACKEND") ||
        qEnvironmentVariableIsSet("QSG_RHI_BACKEND"))
        return;
    if (drawsBetterInSoftware(u"/dev/dri"_s))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

} // namespace hmatnik
