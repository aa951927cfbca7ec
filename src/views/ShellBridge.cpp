#include "views/ShellBridge.h"

#include <QCoreApplication>

namespace hmatnik {

QString ShellBridge::version() const
{
    return QCoreApplication::applicationVersion();
}

} // namespace hmatnik
