// The rooms below the screens must run on any desktop.

#include <QDirIterator>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

/// Files of src/`room` that hold one of the words, its folder linux/ left out.
QStringList filesNaming(const QString &room, const QList<QByteArray> &words, int &seen)
{
    QStringList files;
    QDirIterator iterator(
        QStringLiteral(HMATNIK_SOURCE_DIR "/src/") + room,
        {u"*.h"_s, u"*.cpp"_s, u"CMakeLists.txt"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        const QString path = iterator.next();
        if (path.contains(u"/platform/linux/"_s))
            continue;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        const QByteArray content = file.readAll();
        ++seen;
        for (const QByteArray &word : words) {
            if (content.contains(word))
                files.append(path);
        }
    }
    return files;
}

} // namespace

TEST(Rooms, ModelAndSystemKnowNoAdapter)
{
    int seen = 0;
    for (const auto &room : {u"model"_s, u"system"_s}) {
        EXPECT_EQ(
            filesNaming(
                room,
                {"platform/linux", "xcb/", "<X11", "QDBus", "Qt6::Gui", "Qt6::Quick", "Qt6::Qml",
                 "Qt6::Widgets", "views/", "app/", "update/"},
                seen),
            QStringList());
    }
    EXPECT_GT(seen, 20);
}

TEST(Rooms, SystemKnowsTheRecordAndNothingElseOfTheModel)
{
    int seen = 0;
    EXPECT_EQ(
        filesNaming(
            u"system"_s,
            {"model/AppModel", "model/ShortcutLibrary", "model/ShortcutPool", "model/TextFolding",
             "model/SidebarSelection", "model/ModifierFilter", "hmatnik_model"},
            seen),
        QStringList());
    EXPECT_GT(seen, 6);
}

} // namespace hmatnik::test
