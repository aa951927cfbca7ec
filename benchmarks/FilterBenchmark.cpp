// How long the library grid's filter takes, beside the plain way of asking every field of every
// record, and how long it takes to put records into the model.

#include "SampleShortcuts.h"
#include "model/AppModel.h"
#include "model/ShortcutLibrary.h"
#include "platform/null/NullDesktop.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;
using namespace hmatnik;

namespace {

const QString emptyQuery;
const auto frequentLetter = u"o"_s;
const auto frequentWord = u"okno"_s;
const auto rareWord = u"schránky"_s;
const auto noMatch = u"neexistující"_s;
const auto combination = u"super+k"_s;

/// Records to follow the built-in ones, so that there are `count` in all.
QList<Shortcut> customShortcuts(qsizetype count)
{
    return sampleShortcuts(count - ShortcutLibrary::all().size());
}

QList<Shortcut> allShortcuts(int count)
{
    return ShortcutLibrary::all() + customShortcuts(count);
}

/// With the names of a PC's keys, what stands on the caps is asked too.
void plain(benchmark::State &state, const QString &query, KeyStyle style = KeyStyle::mac)
{
    const QList<Shortcut> shortcuts = allShortcuts(int(state.range(0)));
    QStringList captions;
    if (style == KeyStyle::pc) {
        for (const Shortcut &shortcut : shortcuts)
            captions.append(KeyNames::captions(shortcut.keys, style).join(u'+'));
    }
    for (auto _ : state) {
        int matches = 0;
        for (qsizetype i = 0; i < shortcuts.size(); ++i) {
            const Shortcut &shortcut = shortcuts.at(i);
            bool found = shortcut.title.contains(query, Qt::CaseInsensitive);
            found |= shortcut.detail.contains(query, Qt::CaseInsensitive);
            for (const QString &key : shortcut.keys)
                found |= key.contains(query, Qt::CaseInsensitive);
            if (style == KeyStyle::pc)
                found |= captions.at(i).contains(query, Qt::CaseInsensitive);
            matches += found ? 1 : 0;
        }
        benchmark::DoNotOptimize(matches);
    }
}

void filtered(benchmark::State &state, const QString &query, KeyStyle style = KeyStyle::mac)
{
    AppModel model(platform::makeNullDesktop(QString()), QLocale(u"cs_CZ"_s));
    model.setCustomShortcuts(customShortcuts(int(state.range(0))));
    model.setKeyStyle(style);
    model.setSearch(query);
    int matches = 0;
    for (auto _ : state) {
        const FilteredShortcuts shortcuts = model.filtered();
        matches = shortcuts.size();
        benchmark::DoNotOptimize(matches);
    }
    state.counters["matches"] = double(matches);
}

void setCustomShortcuts(benchmark::State &state)
{
    AppModel model(platform::makeNullDesktop(QString()), QLocale(u"cs_CZ"_s));
    const QList<Shortcut> shortcuts = customShortcuts(int(state.range(0)));
    for (auto _ : state) {
        model.setCustomShortcuts(shortcuts);
        state.PauseTiming();
        model.setCustomShortcuts({});
        state.ResumeTiming();
    }
}

void addOneShortcut(benchmark::State &state)
{
    AppModel model(platform::makeNullDesktop(QString()), QLocale(u"cs_CZ"_s));
    const QList<Shortcut> before = customShortcuts(int(state.range(0)));
    const QList<Shortcut> after = before + QList<Shortcut>{ShortcutLibrary::all().first()};
    for (auto _ : state) {
        model.setCustomShortcuts(after);
        state.PauseTiming();
        model.setCustomShortcuts(before);
        state.ResumeTiming();
    }
}

void toJson(benchmark::State &state)
{
    const QList<Shortcut> shortcuts = customShortcuts(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(Shortcut::toJson(shortcuts));
}

void fromJson(benchmark::State &state)
{
    const QByteArray json = Shortcut::toJson(customShortcuts(int(state.range(0))));
    for (auto _ : state)
        benchmark::DoNotOptimize(Shortcut::fromJson(json));
}

void counts(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(58)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
}

} // namespace

BENCHMARK_CAPTURE(plain, empty, emptyQuery)->Apply(counts);
BENCHMARK_CAPTURE(filtered, empty, emptyQuery)->Apply(counts);
BENCHMARK_CAPTURE(plain, letter, frequentLetter)->Apply(counts);
BENCHMARK_CAPTURE(filtered, letter, frequentLetter)->Apply(counts);
BENCHMARK_CAPTURE(plain, frequent, frequentWord)->Apply(counts);
BENCHMARK_CAPTURE(filtered, frequent, frequentWord)->Apply(counts);
BENCHMARK_CAPTURE(plain, rare, rareWord)->Apply(counts);
BENCHMARK_CAPTURE(filtered, rare, rareWord)->Apply(counts);
BENCHMARK_CAPTURE(plain, none, noMatch)->Apply(counts);
BENCHMARK_CAPTURE(filtered, none, noMatch)->Apply(counts);
BENCHMARK_CAPTURE(plain, letter_pc, frequentLetter, KeyStyle::pc)->Apply(counts);
BENCHMARK_CAPTURE(filtered, letter_pc, frequentLetter, KeyStyle::pc)->Apply(counts);
BENCHMARK_CAPTURE(plain, rare_pc, rareWord, KeyStyle::pc)->Apply(counts);
BENCHMARK_CAPTURE(filtered, rare_pc, rareWord, KeyStyle::pc)->Apply(counts);
BENCHMARK_CAPTURE(plain, combination_pc, combination, KeyStyle::pc)->Apply(counts);
BENCHMARK_CAPTURE(filtered, combination_pc, combination, KeyStyle::pc)->Apply(counts);
BENCHMARK(setCustomShortcuts)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(addOneShortcut)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(toJson)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(fromJson)->Arg(10'000)->Unit(benchmark::kMicrosecond);
