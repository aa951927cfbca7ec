#include "app/ViewsLoader.h"

#include <QCoreApplication>
#include <QFile>
#include <QMessageBox>
#include <QPluginLoader>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

/// Beside the program in a build folder, in the library folder of an installation.
QString modulePath()
{
    const QString name = u"hmatnik-views.so"_s;
    const QString beside = QCoreApplication::applicationDirPath() % u'/' % name;
    if (QFile::exists(beside))
        return beside;
    return QStringLiteral(HMATNIK_MODULE_DIRECTORY) % u'/' % name;
}

} // namespace

ViewsModule *ViewsLoader::module()
{
    static QPluginLoader loader(modulePath());
    auto *views = qobject_cast<ViewsModule *>(loader.instance());
    if (!views)
        QMessageBox::critical(
            nullptr, u"Hmatník"_s,
            u"Okna programu se nepodařilo načíst: "_s % loader.errorString());
    return views;
}

} // namespace hmatnik
