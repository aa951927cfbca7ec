#include "platform/linux/ProgramSystemShortcuts.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <memory>
#include <optional>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

ProgramSystemShortcuts::Arguments arguments(const QStringList &list)
{
    return [list] {
        return list;
    };
}

std::function<QString()> windowManager(const QString &name)
{
    return [name] {
        return name;
    };
}

/// What a shell command in the place of the program leads to.
SystemShortcuts::Result
answerOf(const QString &command, std::chrono::milliseconds timeout = std::chrono::seconds(20))
{
    ProgramSystemShortcuts shortcuts(u"/bin/sh"_s, arguments({u"-c"_s, command}), timeout);
    std::optional<SystemShortcuts::Result> answer;
    shortcuts.read([&](const SystemShortcuts::Result &result) { answer = result; });
    EXPECT_FALSE(answer) << "never from within the call";
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }, 30'000));
    return answer.value_or(SystemShortcutSettings{QList<SystemShortcut>(1)}); // unlike any answer
}

const QString one = uR"(echo '{"withoutKeys":["a:c"],"shortcuts":[{"id":"a:b","title":"Zavřít",)"
                    uR"("keys":["⌥","F4"],"kind":1,"desktop":"A"}]}')"_s;

} // namespace

TEST(ProgramSystemShortcuts, TheAnswerIsRead)
{
    const SystemShortcut expected{
        u"a:b"_s, u"Zavřít"_s, {u"⌥"_s, u"F4"_s}, SystemShortcut::Kind::windows, u"A"_s};
    EXPECT_EQ(answerOf(one), (SystemShortcutSettings{{expected}, {u"a:c"_s}}));
    EXPECT_EQ(answerOf(uR"(echo '{"shortcuts":[],"withoutKeys":[]}')"_s), SystemShortcutSettings());
}

TEST(ProgramSystemShortcuts, WhatIsNoAnswerIsNone)
{
    for (const QString &command :
         {u"exit 1"_s, u"echo nonsense"_s, u"echo '[]'"_s, u"kill -SEGV $$"_s,
          QString(one + u"; exit 3"_s), u"printf '\\377\\376'"_s, u"yes"_s})
        EXPECT_EQ(answerOf(command), std::nullopt) << command.toStdString();
}

TEST(ProgramSystemShortcuts, AProgramThatHangsIsEnded)
{
    EXPECT_EQ(answerOf(u"exec sleep 1000"_s, std::chrono::milliseconds(100)), std::nullopt);
}

TEST(ProgramSystemShortcuts, AProgramThatIsNotThereIsNoAnswer)
{
    ProgramSystemShortcuts shortcuts(u"/nonexistent/program"_s, arguments({u"gnome"_s}));
    std::optional<SystemShortcuts::Result> answer;
    shortcuts.read([&](const SystemShortcuts::Result &result) { answer = result; });
    EXPECT_FALSE(answer);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }));
    ASSERT_TRUE(answer);
    EXPECT_EQ(*answer, std::nullopt);
}

TEST(ProgramSystemShortcuts, TheLastQuestionIsAnswered)
{
    ProgramSystemShortcuts shortcuts(u"/bin/sh"_s, arguments({u"-c"_s, one}));
    int first = 0;
    int second = 0;
    shortcuts.read([&](const auto &) { ++first; });
    shortcuts.read([&](const auto &) { ++second; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return second == 1; }));
    EXPECT_EQ(first, 0);
}

TEST(ProgramSystemShortcuts, AnUnknownDesktopIsUnavailable)
{
    const auto isAvailable = [](const QString &name) {
        return ProgramSystemShortcuts::forThisDesktop(windowManager(name))
            ->availability()
            .available;
    };
    qputenv("XDG_CURRENT_DESKTOP", "Unheard");
    EXPECT_FALSE(isAvailable({}));
    EXPECT_TRUE(isAvailable(u"Openbox"_s));
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    EXPECT_TRUE(isAvailable({}));
}

TEST(ProgramSystemShortcuts, AWindowManagerThatComesLaterIsHeeded)
{
    qputenv("XDG_CURRENT_DESKTOP", "");
    QString name;
    const auto shortcuts = ProgramSystemShortcuts::forThisDesktop([&] { return name; });
    EXPECT_FALSE(shortcuts->availability().available);
    name = u"Openbox"_s;
    EXPECT_TRUE(shortcuts->availability().available);
}

TEST(ProgramSystemShortcuts, TheProgramEndsWithTheOneThatAsked)
{
    const QTemporaryDir folder;
    const QString written = folder.filePath(u"pid"_s);
    const QString command = u"echo $$ > \"%1.part\"; mv \"%1.part\" \"%1\"; exec sleep 1000"_s;
    auto shortcuts = std::make_unique<ProgramSystemShortcuts>(
        u"/bin/sh"_s, arguments({u"-c"_s, command.arg(written)}));
    shortcuts->read([](const auto &) { ADD_FAILURE() << "nobody is there to be told"; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(written); }, 30'000));
    QFile file(written);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const pid_t process = file.readAll().trimmed().toInt();
    ASSERT_EQ(kill(process, 0), 0);
    shortcuts.reset();
    EXPECT_EQ(kill(process, 0), -1) << "gone, and its state fetched";
}

} // namespace hmatnik::test
