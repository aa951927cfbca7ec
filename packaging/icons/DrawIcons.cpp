// Writes the program's icon as pictures of the usual sizes into the folders of an icon theme.

#include "app/BrandIcon.h"

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("Usage: draw-icons THEME-FOLDER SIZE…\n", stderr);
        return 2;
    }
    for (const QString &size : arguments.sliced(2)) {
        const int side = size.toInt();
        const QDir folder(arguments[1] + u"/%1x%1/apps"_s.arg(side));
        const QString file = folder.filePath(u"cz.hmatnik.Hmatnik.png"_s);
        if (side <= 0 || !folder.mkpath(u"."_s) ||
            !hmatnik::brandIcon().pixmap(QSize(side, side)).save(file)) {
            std::fprintf(stderr, "draw-icons: can't write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
