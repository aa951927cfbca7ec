// Feeds the files of the corpora to the targets that the fuzzer runs, in an ordinary build.

#include "FuzzTargets.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

struct Target
{
    const char *name = nullptr;
    void (*run)(const QByteArray &bytes) = nullptr;
};

constexpr std::array targets{
    Target{"Preferences", fuzzPreferences},         Target{"ShortcutList", fuzzShortcutList},
    Target{"VersionManifest", fuzzVersionManifest}, Target{"Versions", fuzzVersions},
    Target{"KeyBinding", fuzzKeyBinding},           Target{"DesktopEntry", fuzzDesktopEntry},
};

class CorpusReplayTest : public testing::TestWithParam<Target>
{
};

} // namespace

TEST_P(CorpusReplayTest, EveryInputKeepsThePromises)
{
    const QDir corpus(
        u"" HMATNIK_SOURCE_DIR "/tests/fuzz/corpus/"_s + QLatin1StringView(GetParam().name));
    const QStringList names = corpus.entryList(QDir::Files, QDir::Name);
    ASSERT_GE(names.size(), 5) << "too few inputs in " << qPrintable(corpus.path());
    for (const QString &name : names) {
        QFile file(corpus.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        const QByteArray bytes = file.readAll();
        // A broken promise ends the process, so tell beforehand.
        std::cout << GetParam().name << '/' << qPrintable(name) << std::endl;
        GetParam().run(bytes);
    }
    GetParam().run({});
}

INSTANTIATE_TEST_SUITE_P(All, CorpusReplayTest, testing::ValuesIn(targets), [](const auto &info) {
    return std::string(info.param.name);
});

} // namespace hmatnik::test
