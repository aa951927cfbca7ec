#include "platform/linux/AutostartLoginItem.h"

#include "OrdinaryUser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

class AutostartLoginItemTest : public testing::Test
{
protected:
    void create(const QByteArray &bytes) const
    {
        QDir().mkpath(m_folder.filePath(u"autostart"_s));
        QFile file(m_path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray contents() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void SetUp() override
    {
        QDir().mkpath(m_folder.filePath(u"my tools"_s));
        QFile program(m_program);
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        ASSERT_TRUE(program.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    }

    QTemporaryDir m_folder;
    QString m_program = m_folder.filePath(u"my tools/100% $hmatnik"_s);
    QString m_path = m_folder.filePath(u"autostart/cz.hmatnik.Hmatnik.desktop"_s);
    AutostartLoginItem m_item{m_path, AutostartLoginItem::quoted(m_program)};
};

TEST_F(AutostartLoginItemTest, StandsInTheAutostartFolder)
{
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    EXPECT_EQ(AutostartLoginItem::defaultPath(), m_path);
    qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(AutostartLoginItemTest, OnWritesTheEntryAndOffRemovesIt)
{
    EXPECT_FALSE(m_item.isEnabled());
    EXPECT_EQ(m_item.setEnabled(true), std::nullopt);
    EXPECT_TRUE(m_item.isEnabled());
    EXPECT_TRUE(contents().startsWith("[Desktop Entry]\n"));
    const QString exec = AutostartLoginItem::quoted(m_program);
    EXPECT_TRUE(contents().contains("\nExec=" + exec.toUtf8() + "\n"));
    EXPECT_EQ(m_item.setEnabled(false), std::nullopt);
    EXPECT_FALSE(m_item.isEnabled());
    EXPECT_FALSE(QFile::exists(m_path));
    EXPECT_EQ(m_item.setEnabled(false), std::nullopt) << "what is off can be switched off";
}

TEST_F(AutostartLoginItemTest, TheStateIsTheDesktopsOwn)
{
    const QByteArray entry = "[Desktop Entry]\nType=Application\nName=H\nExec=sh -c true\n";
    create(entry);
    EXPECT_TRUE(m_item.isEnabled());
    create(entry + "Hidden=true\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "X-GNOME-Autostart-enabled=false\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "X-MATE-Autostart-enabled=false\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "X-GNOME-Autostart-enabled=true\nX-MATE-Autostart-enabled=false\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "Hidden=false\nX-MATE-Autostart-enabled=true\nX-GNOME-Autostart-enabled=true\n");
    EXPECT_TRUE(m_item.isEnabled());
    for (const char *damaged : {"", "garbled", "[Other]\nExec=sh\n", "[Desktop Entry]\n"}) {
        create(damaged);
        EXPECT_FALSE(m_item.isEnabled()) << damaged;
    }
    EXPECT_EQ(m_item.setEnabled(true), std::nullopt);
    EXPECT_TRUE(m_item.isEnabled()) << "a disabled entry is replaced";
}

TEST_F(AutostartLoginItemTest, AnEntryWhoseProgramIsGoneIsOff)
{
    ASSERT_EQ(m_item.setEnabled(true), std::nullopt);
    ASSERT_TRUE(m_item.isEnabled());
    ASSERT_TRUE(QFile::setPermissions(m_program, QFile::ReadOwner));
    EXPECT_FALSE(m_item.isEnabled()) << "it can't be run";
    ASSERT_TRUE(QFile::remove(m_program));
    EXPECT_FALSE(m_item.isEnabled());

    const QByteArray entry = "[Desktop Entry]\nType=Application\nName=H\n";
    create(entry + "Exec=no-such-program-anywhere\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "Exec=/nowhere/hmatnik\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "Exec=\"unfinished\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "Exec=\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "TryExec=/nowhere/hmatnik\nExec=sh\n");
    EXPECT_FALSE(m_item.isEnabled());
    create(entry + "TryExec=sh\nExec=sh\n");
    EXPECT_TRUE(m_item.isEnabled());
}

TEST_F(AutostartLoginItemTest, HandsOnTheSystemsError)
{
    const test::OrdinaryUser user(m_folder.path());
    ASSERT_TRUE(user.isInForce());
    ASSERT_TRUE(QFile::setPermissions(m_folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(m_item.setEnabled(true), qt_error_string(EACCES));
    EXPECT_FALSE(m_item.isEnabled());
    ASSERT_TRUE(QFile::setPermissions(
        m_folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

    ASSERT_EQ(m_item.setEnabled(true), std::nullopt);
    const QString autostart = m_folder.filePath(u"autostart"_s);
    ASSERT_TRUE(QFile::setPermissions(autostart, QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_EQ(m_item.setEnabled(false), qt_error_string(EACCES));
    EXPECT_TRUE(m_item.isEnabled());
    ASSERT_TRUE(
        QFile::setPermissions(autostart, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

TEST_F(AutostartLoginItemTest, AFileInTheFoldersPlaceIsAnErrorToo)
{
    QFile file(m_folder.filePath(u"autostart"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(m_item.setEnabled(true), qt_error_string(ENOTDIR));
}

TEST(AutostartLoginItemQuoting, FollowsTheRulesOfDesktopEntries)
{
    EXPECT_EQ(AutostartLoginItem::quoted(u"/usr/bin/hmatnik"_s), u"\"/usr/bin/hmatnik\""_s);
    EXPECT_EQ(AutostartLoginItem::quoted(u"/a 100%/$b"_s), u"\"/a 100%%/\\\\$b\""_s);
    EXPECT_EQ(AutostartLoginItem::quoted(u"\\"_s), u"\"\\\\\\\\\""_s);
}

} // namespace hmatnik::platform
