// How long the library grid's filter takes, beside the plain way of asking every field of every
// record, and how long it takes to put records into the model.

#include "SampleShortcuts.h"
#include "model/AppModel.h"
#include "model/DesktopLibrary.h"
#include "model/ShortcutLibrary.h"
#include "platform/null/NullDesktop.h"

#include <benchmark/benchmark.h>

#include <utility>

using namespace Qt::StringLiterals;
using namespace hmatnik;

namespace {

const QString emptyQuery;
const auto frequentLetter = u"o"_s;
const auto frequentWord = u"okno"_s;
const auto rareWord = u"schránky"_s;
const auto noMatch = u"neexistující"_s;
const auto combination = u"super+k"_s;

/// What a person chooses: the library and the names of keys of a Mac, or of the desktop in front.
enum class Keyboard { mac, own };

QList<Shortcut> library(Keyboard keyboard)
{
    if (keyboard == Keyboard::mac)
        return ShortcutLibrary::all();
    QList<Shortcut> shortcuts;
    for (const DesktopShortcut &entry : DesktopLibrary::of(platform::DesktopFamily::gnome))
        shortcuts.append(entry.shortcut);
    return shortcuts;
}

/// Records to follow the built-in ones, so that there are `count` in all.
QList<Shortcut> customShortcuts(qsizetype count, Keyboard keyboard = Keyboard::mac)
{
    return sampleShortcuts(count - library(keyboard).size());
}

/// With the names of a PC's keys, what stands on the caps is asked too.
void plain(benchmark::State &state, const QString &query, Keyboard keyboard = Keyboard::mac)
{
    const QList<Shortcut> shortcuts = library(keyboard) + customShortcuts(state.range(0), keyboard);
    QStringList captions;
    if (keyboard == Keyboard::own) {
        for (const Shortcut &shortcut : shortcuts)
            captions.append(KeyNames::captions(shortcut.keys, KeyStyle::pc).join(u'+'));
    }
    for (auto _ : state) {
        int matches = 0;
        for (qsizetype i = 0; i < shortcuts.size(); ++i) {
            const Shortcut &shortcut = shortcuts.at(i);
            bool found = shortcut.title.contains(query, Qt::CaseInsensitive);
            found |= shortcut.detail.contains(query, Qt::CaseInsensitive);
            for (const QString &key : shortcut.keys)
                found |= key.contains(query, Qt::CaseInsensitive);
            if (keyboard == Keyboard::own)
                found |= captions.at(i).contains(query, Qt::CaseInsensitive);
            matches += found ? 1 : 0;
        }
        benchmark::DoNotOptimize(matches);
    }
}

void filtered(benchmark::State &state, const QString &query, Keyboard keyboard = Keyboard::mac)
{
    platform::Desktop desktop = platform::makeNullDesktop(QString());
    desktop.kind.family = platform::DesktopFamily::gnome;
    AppModel model(std::move(desktop), QLocale(u"cs_CZ"_s));
    model.setCustomShortcuts(customShortcuts(state.range(0), keyboard));
    if (keyboard == Keyboard::own) {
        model.setKeyStyle(KeyStyle::pc);
        model.setLibraryChoice(LibraryChoice::desktop);
    }
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
    const QList<Shortcut> shortcuts = customShortcuts(state.range(0));
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
    const QList<Shortcut> before = customShortcuts(state.range(0));
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
    const QList<Shortcut> shortcuts = customShortcuts(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(Shortcut::toJson(shortcuts));
}

void fromJson(benchmark::State &state)
{
    const QByteArray json = Shortcut::toJson(customShortcuts(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(Shortcut::fromJson(json));
}

/// The library alone, and many more.
template <Keyboard keyboard = Keyboard::mac>
void counts(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(library(keyboard).size())
        ->Arg(10'000)
        ->Arg(100'000)
        ->Unit(benchmark::kMicrosecond);
}

} // namespace

BENCHMARK_CAPTURE(plain, empty, emptyQuery)->Apply(counts<>);
BENCHMARK_CAPTURE(filtered, empty, emptyQuery)->Apply(counts<>);
BENCHMARK_CAPTURE(plain, letter, frequentLetter)->Apply(counts<>);
BENCHMARK_CAPTURE(filtered, letter, frequentLetter)->Apply(counts<>);
BENCHMARK_CAPTURE(plain, frequent, frequentWord)->Apply(counts<>);
BENCHMARK_CAPTURE(filtered, frequent, frequentWord)->Apply(counts<>);
BENCHMARK_CAPTURE(plain, rare, rareWord)->Apply(counts<>);
BENCHMARK_CAPTURE(filtered, rare, rareWord)->Apply(counts<>);
BENCHMARK_CAPTURE(plain, none, noMatch)->Apply(counts<>);
BENCHMARK_CAPTURE(filtered, none, noMatch)->Apply(counts<>);
BENCHMARK_CAPTURE(plain, letter_own_keyboard, frequentLetter, Keyboard::own)
    ->Apply(counts<Keyboard::own>);
BENCHMARK_CAPTURE(filtered, letter_own_keyboard, frequentLetter, Keyboard::own)
    ->Apply(counts<Keyboard::own>);
BENCHMARK_CAPTURE(plain, rare_own_keyboard, rareWord, Keyboard::own)->Apply(counts<Keyboard::own>);
BENCHMARK_CAPTURE(filtered, rare_own_keyboard, rareWord, Keyboard::own)
    ->Apply(counts<Keyboard::own>);
BENCHMARK_CAPTURE(plain, combination_own_keyboard, combination, Keyboard::own)
    ->Apply(counts<Keyboard::own>);
BENCHMARK_CAPTURE(filtered, combination_own_keyboard, combination, Keyboard::own)
    ->Apply(counts<Keyboard::own>);
BENCHMARK(setCustomShortcuts)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(addOneShortcut)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(toJson)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(fromJson)->Arg(10'000)->Unit(benchmark::kMicrosecond);
