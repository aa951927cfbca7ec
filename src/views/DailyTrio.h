#pragma once

#include "model/Shortcut.h"
#include "views/ScreenState.h"

#include <QList>
#include <QTimer>
#include <QVariantList>

namespace hmatnik {

/// The three shortcuts to learn today, and the count of days on which the person learnt them.
///
/// A day of learning is a calendar day in UTC. A day without learning is simply not counted: the
/// count never drops. Both values live in the preferences and belong to this screen alone.
// The base is named in full, because that is how the QML tools look it up.
class DailyTrio : public hmatnik::ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QVariantList cards READ cards NOTIFY changed)
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString confirmationText READ confirmationText NOTIFY changed)
    Q_PROPERTY(bool learnedToday READ learnedToday NOTIFY changed)
    Q_PROPERTY(bool active READ isActive WRITE setActive NOTIFY activeChanged)

public:
    explicit DailyTrio(QObject *parent = nullptr);

    /// Today's shortcut, a tip for the application in front and the most used of the others; fewer
    /// than three where these coincide.
    QList<Shortcut> trio() const;
    /// Name of a card's symbol, by its position in the trio.
    static QString symbol(int position);
    /// What a card is about, by its position in the trio: "Základ", "Pro Safari", "K zopakování".
    QString kind(int position) const;
    /// The trio as maps of "card", "symbol" and "kind".
    QVariantList cards() const;

    /// Days on which the trio was confirmed.
    qint64 streak() const;
    /// The day in UTC as ISO 8601 writes it: "2026-11-16".
    QString today() const;
    /// The day of the last confirmation, in the same form; empty if there was none.
    QString lastLearnedDay() const;
    bool learnedToday() const { return lastLearnedDay() == today(); }

    /// "DNEŠNÍ TROJICE  •  4 dní v řadě".
    QString headline() const;
    /// Title of the button that confirms.
    QString confirmationText() const;

    /// Counts today, once.
    Q_INVOKABLE void complete();

    /// Whether the screen is in sight. Only then a new day is awaited.
    bool isActive() const { return m_active; }
    void setActive(bool active);
    /// Looks at the clock afresh, which a machine that slept needs.
    Q_INVOKABLE void refresh();
    /// Milliseconds until a new day is looked for; -1 if none is awaited.
    int millisecondsToNextDay() const { return m_nextDay.remainingTime(); }

Q_SIGNALS:
    void activeChanged();

protected:
    void follow(AppModel &model) override;

private:
    QTimer m_nextDay;
    bool m_active = false;
};

} // namespace hmatnik
