#include "app/ViewsLoader.h"

#include <QCoreApplication>
#include <QFile>
#include <QMessageBox>
#include <QPluginLoader>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

ViewsModule *theModule = nullptr;

/// Beside the program in a build folder, in the library folder of an installation.
QString modulePath()
{
    const QString name = u"hmatnik-views.so"_s;
    QString beside = QCoreApplication::applicationDirPath() + u'/' + name;
    if (QFile::exists(beside))
        return beside;
    return QStringLiteral(HMATNIK_MODULE_DIRECTORY) + u'/' + name;
}

} // namespace

ViewsModule *ViewsLoader::module()
{
    if (theModule)
        return theModule;
    QPluginLoader loader(modulePath());
    theModule = qobject_cast<ViewsModule *>(loader.instance());
    if (!theModule)
        QMessageBox::critical(
            nullptr, u"Hmatník"_s,
            u"Okna programu se nepodařilo načíst: "_s + loader.errorString());
    return theModule;
}

void ViewsLoader::release()
{
    if (theModule)
        theModule->release();
}

} // namespace hmatnik
