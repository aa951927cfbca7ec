#include "platform/linux/DesktopEntries.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/time.h>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

std::optional<QString> name(const char16_t *text)
{
    return QString::fromUtf16(text);
}

} // namespace

class DesktopEntriesTest : public testing::Test
{
protected:
    DesktopEntriesTest()
    {
        qputenv("LANGUAGE", "cs");
        qputenv("LC_ALL", "cs_CZ.UTF-8");
    }
    ~DesktopEntriesTest() override
    {
        qunsetenv("LANGUAGE");
        qputenv("LC_ALL", "C.UTF-8");
    }

    /// Writes an entry and gives its folder a time of its own, as seconds would.
    void create(const QString &path, const QByteArray &bytes)
    {
        const QString full = m_folder.filePath(path);
        const QString folder = QFileInfo(full).path();
        QDir().mkpath(folder);
        QFile file(full);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        const timeval times[2] = {{++m_time, 0}, {m_time, 0}};
        ::utimes(folder.toUtf8().constData(), times);
    }
    void createNamed(const QString &path, const QByteArray &entryName, const QByteArray &more = {})
    {
        create(path, "[Desktop Entry]\nType=Application\nName=" + entryName + "\n" + more);
    }
    DesktopEntries entries() const
    {
        return DesktopEntries({m_folder.filePath(u"home"_s), m_folder.filePath(u"system"_s)});
    }

    QTemporaryDir m_folder;
    time_t m_time = 1000000000;
};

TEST_F(DesktopEntriesTest, GivesTheNameInThePersonsLanguage)
{
    createNamed(
        u"system/org.example.Editor.desktop"_s, "Text Editor",
        "Name[cs]=Textový editor\nName[de]=Textverarbeitung\n");
    createNamed(u"system/plain.desktop"_s, "Plain");
    auto entries = this->entries();
    EXPECT_EQ(entries.nameFor({u"org.example.Editor"_s, u"editor"_s, {}}), name(u"Textový editor"));
    EXPECT_EQ(entries.nameFor({u"plain"_s, {}, {}}), name(u"Plain"));
}

TEST_F(DesktopEntriesTest, StartupWMClassComesFirstAndOnlyExactly)
{
    createNamed(u"system/Writer.desktop"_s, "By id");
    createNamed(u"system/suite-writer.desktop"_s, "By class", "StartupWMClass=Writer\n");
    createNamed(u"system/other.desktop"_s, "Action", "[Desktop Action a]\nStartupWMClass=other2\n");
    auto entries = this->entries();
    EXPECT_EQ(entries.nameFor({u"Writer"_s, u"x"_s, {}}), name(u"By class"));
    EXPECT_EQ(entries.nameFor({u"x"_s, u"Writer"_s, {}}), name(u"By class"));
    EXPECT_EQ(entries.nameFor({u"writer"_s, {}, {}}), name(u"By id"));
    EXPECT_EQ(entries.nameFor({u"other2"_s, {}, {}}), std::nullopt);
}

TEST_F(DesktopEntriesTest, ThenTheIdThenItsLastPart)
{
    createNamed(u"system/FeatherPad.desktop"_s, "Exact case");
    createNamed(u"system/gamma.desktop"_s, "Other case");
    createNamed(u"system/org.example.mousepad.desktop"_s, "Last part");
    createNamed(u"system/sub/tool.desktop"_s, "Below");
    createNamed(u"system/org.app.Id.desktop"_s, "Application id");
    auto entries = this->entries();
    EXPECT_EQ(entries.nameFor({u"FeatherPad"_s, u"featherpad"_s, {}}), name(u"Exact case"));
    EXPECT_EQ(entries.nameFor({u"Gamma"_s, u"x"_s, {}}), name(u"Other case"));
    EXPECT_EQ(entries.nameFor({u"Mousepad"_s, u"mousepad"_s, {}}), name(u"Last part"));
    EXPECT_EQ(entries.nameFor({u"x"_s, u"sub-tool"_s, {}}), name(u"Below"));
    EXPECT_EQ(
        entries.nameFor({u"Mousepad"_s, u"mousepad"_s, u"org.app.Id"_s}), name(u"Application id"));
    EXPECT_EQ(entries.nameFor({u"unknown"_s, u"unknown"_s, u"org.unknown"_s}), std::nullopt);
    EXPECT_EQ(entries.nameFor({}), std::nullopt);
}

TEST_F(DesktopEntriesTest, EarlierFoldersAndShownEntriesWin)
{
    createNamed(u"system/app.desktop"_s, "System");
    createNamed(u"home/app.desktop"_s, "Home");
    createNamed(u"system/a.desktop"_s, "Not shown", "StartupWMClass=Suite\nNoDisplay=true\n");
    createNamed(u"system/b.desktop"_s, "Shown", "StartupWMClass=Suite\n");
    createNamed(u"system/c.desktop"_s, "Alone", "StartupWMClass=Helper\nNoDisplay=true\n");
    auto entries = this->entries();
    EXPECT_EQ(entries.nameFor({u"app"_s, {}, {}}), name(u"Home"));
    EXPECT_EQ(entries.nameFor({u"Suite"_s, {}, {}}), name(u"Shown"));
    EXPECT_EQ(entries.nameFor({u"Helper"_s, {}, {}}), name(u"Alone"));
}

TEST_F(DesktopEntriesTest, NoticesWhatIsInstalledWhileItRuns)
{
    createNamed(u"system/first.desktop"_s, "First");
    auto entries = this->entries();
    EXPECT_EQ(entries.nameFor({u"second"_s, {}, {}}), std::nullopt);
    createNamed(u"system/second.desktop"_s, "Second");
    EXPECT_EQ(entries.nameFor({u"second"_s, {}, {}}), name(u"Second"));
    createNamed(u"home/second.desktop"_s, "Mine"); // a folder that was not there before
    EXPECT_EQ(entries.nameFor({u"second"_s, {}, {}}), name(u"Mine"));
}

TEST_F(DesktopEntriesTest, DamagedEntriesDoNoHarm)
{
    create(u"system/empty.desktop"_s, "");
    create(u"system/binary.desktop"_s, QByteArray(5000, '\0'));
    create(u"system/latin.desktop"_s, "[Desktop Entry]\nName=\xe1\xe8\xff\nStartupWMClass=L\n");
    create(u"system/nameless.desktop"_s, "[Desktop Entry]\nType=Application\nStartupWMClass=N");
    create(u"system/blank.desktop"_s, "[Desktop Entry]\nName=  \nStartupWMClass=B");
    create(u"system/huge.desktop"_s, "[Desktop Entry]\nName=" + QByteArray(3000000, 'x'));
    createNamed(u"system/long.desktop"_s, QByteArray(100000, 'x'));
    ASSERT_TRUE(QFile::link(u"loop.desktop"_s, m_folder.filePath(u"system/loop.desktop"_s)));
    ASSERT_TRUE(QFile::link(u"."_s, m_folder.filePath(u"system/circle"_s)));
    createNamed(u"system/good.desktop"_s, "Good");
    auto entries = this->entries();
    for (const auto *windowClass :
         {u"empty", u"binary", u"nameless", u"N", u"blank", u"B", u"loop"})
        EXPECT_EQ(entries.nameFor({QString::fromUtf16(windowClass), {}, {}}), std::nullopt)
            << QString::fromUtf16(windowClass).toStdString();
    EXPECT_LE(entries.nameFor({u"long"_s, {}, {}})->size(), 256);
    EXPECT_EQ(entries.nameFor({u"good"_s, {}, {}}), name(u"Good"));
}

TEST_F(DesktopEntriesTest, ALongNameEndsWithAWholeCharacter)
{
    const QByteArray most(255, 'x');
    createNamed(u"system/fits.desktop"_s, most + "y");
    createNamed(u"system/letter.desktop"_s, most + "yz");
    createNamed(u"system/face.desktop"_s, most + "\xF0\x9F\x98\x80");
    createNamed(u"system/whole-face.desktop"_s, most.chopped(1) + "\xF0\x9F\x98\x80z");
    createNamed(u"system/space.desktop"_s, most + " z");
    auto entries = this->entries();
    const QString kept = QString::fromLatin1(most);
    const auto nameOf = [&](const QString &id) {
        return entries.nameFor({id, {}, {}}).value_or(QString());
    };
    EXPECT_EQ(nameOf(u"fits"_s), kept + u'y');
    EXPECT_EQ(nameOf(u"letter"_s), kept + u'y');
    EXPECT_EQ(nameOf(u"face"_s), kept);
    EXPECT_EQ(nameOf(u"whole-face"_s), kept.chopped(1) + u"\U0001F600"_s);
    EXPECT_EQ(nameOf(u"space"_s), kept);
}

} // namespace hmatnik::platform
