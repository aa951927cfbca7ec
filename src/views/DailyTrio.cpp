#include "views/DailyTrio.h"

#include "views/CardData.h"
#include "views/Uniqued.h"

#include <QTimeZone>

#include <algorithm>
#include <array>
#include <chrono>
#include <limits>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

const QString streakKey = u"learningStreak"_s;
const QString lastDayKey = u"lastLearnedDay"_s;

QDateTime nextMidnight(const QDateTime &now)
{
    return now.date().addDays(1).startOfDay(now.timeZone());
}

} // namespace

DailyTrio::DailyTrio(QObject *parent)
    : ScreenState(parent)
{
    m_nextDay.setSingleShot(true);
    m_nextDay.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_nextDay, &QTimer::timeout, this, &DailyTrio::refresh);
}

void DailyTrio::follow(AppModel &model)
{
    connect(&model, &AppModel::activeAppChanged, this, &DailyTrio::changed);
    connect(&model, &AppModel::customShortcutsChanged, this, &DailyTrio::changed);
    connect(&model, &AppModel::usageCountsChanged, this, &DailyTrio::changed);
    connect(&model, &AppModel::keyStyleChanged, this, &DailyTrio::changed);
    connect(&model, &AppModel::libraryChanged, this, &DailyTrio::changed);
    refresh();
}

QList<Shortcut> DailyTrio::trio() const
{
    if (!model())
        return {};
    const QList<Shortcut> pool = model()->pool().records();
    const Shortcut first = model()->dailyShortcut();
    const qsizetype base = std::max<qsizetype>(0, pool.indexOf(first));

    const auto forActiveApp = std::ranges::find_if(pool, [&](const Shortcut &shortcut) {
        return shortcut.apps.contains(model()->activeApp()) && shortcut.id != first.id;
    });
    const Shortcut second =
        forActiveApp != pool.end() ? *forActiveApp : pool.at((base + 1) % pool.size());

    const Shortcut *mostUsed = nullptr;
    qint64 mostUses = 0;
    for (const Shortcut &candidate : pool) {
        if (candidate.id == first.id || candidate.id == second.id)
            continue;
        const qint64 uses = model()->usageCounts().value(candidate.id, 0);
        if (!mostUsed || uses > mostUses) {
            mostUsed = &candidate;
            mostUses = uses;
        }
    }
    const Shortcut third = mostUsed ? *mostUsed : pool.at((base + 2) % pool.size());

    return uniqued({first, second, third});
}

QString DailyTrio::symbol(int position)
{
    static const std::array symbols{u"sparkles"_s, u"macwindow"_s, u"clock.arrow.circlepath"_s};
    return symbols.at(static_cast<size_t>(position));
}

QString DailyTrio::kind(int position) const
{
    switch (position) {
    case 0:
        return u"Základ"_s;
    case 1:
        return u"Pro "_s + (model() ? model()->activeApp() : QString());
    default:
        return u"K zopakování"_s;
    }
}

QVariantList DailyTrio::cards() const
{
    QVariantList cards;
    for (const Shortcut &shortcut : trio()) {
        const int position = static_cast<int>(cards.size());
        const bool favorite = model()->favorites().contains(shortcut.id);
        cards.append(QVariantMap{
            {u"card"_s, QVariant::fromValue(CardData(shortcut, favorite, model()->keyStyle()))},
            {u"symbol"_s, symbol(position)},
            {u"kind"_s, kind(position)}});
    }
    return cards;
}

qint64 DailyTrio::streak() const
{
    if (!model())
        return 0;
    const QVariant stored = model()->desktop().preferences->value(streakKey);
    return stored.typeId() == QMetaType::LongLong ? stored.toLongLong() : 0;
}

QString DailyTrio::today() const
{
    if (!model())
        return {};
    return model()->desktop().clock->now().toUTC().date().toString(Qt::ISODate);
}

QString DailyTrio::lastLearnedDay() const
{
    if (!model())
        return {};
    const QVariant stored = model()->desktop().preferences->value(lastDayKey);
    return stored.typeId() == QMetaType::QString ? stored.toString() : QString();
}

QString DailyTrio::headline() const
{
    return u"DNEŠNÍ TROJICE  •  %1 dní v řadě"_s.arg(streak());
}

QString DailyTrio::confirmationText() const
{
    return learnedToday() ? u"Dnes splněno ✓"_s : u"Trojici umím"_s;
}

void DailyTrio::complete()
{
    if (!model())
        return;
    platform::Preferences &preferences = *model()->desktop().preferences;
    preferences.refresh(); // another process may have counted the day
    if (learnedToday()) {
        Q_EMIT changed();
        return;
    }
    const qint64 days = streak();
    // A stored count may be anything; it must not overflow.
    preferences.setValue(streakKey, days < std::numeric_limits<qint64>::max() ? days + 1 : days);
    preferences.setValue(lastDayKey, today());
    Q_EMIT changed();
}

void DailyTrio::setActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    refresh();
    Q_EMIT activeChanged();
}

void DailyTrio::refresh()
{
    m_nextDay.stop();
    if (m_active && model()) {
        // The shortcut of the day changes at local midnight, the day of learning at midnight UTC.
        const QDateTime now = model()->desktop().clock->now();
        const QDateTime next = std::min(nextMidnight(now), nextMidnight(now.toUTC()));
        // A coarse timer may be early; one second later the new day has surely begun.
        m_nextDay.start(std::chrono::milliseconds(now.msecsTo(next)) + std::chrono::seconds(1));
    }
    Q_EMIT changed();
}

} // namespace hmatnik
