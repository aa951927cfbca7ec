#pragma once

#include "model/Shortcut.h"
#include "views/ScreenState.h"
#include "views/UniformInteger.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace hmatnik {

/// A round of the quiz: the drawn tasks, what was pressed and the verdict. The task's number and
/// the score live in the model, so that they outlast the screen.
// The base is named in full, because that is how the QML tools look it up.
class PracticeRound : public hmatnik::ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QStringList keys READ keys NOTIFY changed)
    Q_PROPERTY(bool areAllKeysNamed READ areAllKeysNamed NOTIFY changed)
    Q_PROPERTY(QStringList keyCaptions READ keyCaptions NOTIFY changed)
    Q_PROPERTY(QString spokenKeys READ spokenKeys NOTIFY changed)
    Q_PROPERTY(QStringList capturedCaptions READ capturedCaptions NOTIFY changed)
    Q_PROPERTY(QString capturedText READ capturedText NOTIFY changed)
    Q_PROPERTY(QString spokenCaptured READ spokenCaptured NOTIFY changed)
    Q_PROPERTY(Verdict verdict READ verdict NOTIFY changed)
    Q_PROPERTY(QString verdictText READ verdictText NOTIFY changed)
    Q_PROPERTY(QString taskText READ taskText NOTIFY changed)
    Q_PROPERTY(QString scoreText READ scoreText NOTIFY changed)
    Q_PROPERTY(QString nextText READ nextText NOTIFY changed)
    Q_PROPERTY(int completedTasks READ completedTasks NOTIFY changed)
    Q_PROPERTY(int taskCount READ taskCount NOTIFY changed)

public:
    /// Whether and how the current task has been answered.
    enum class Verdict { Unanswered, Correct, Wrong };
    Q_ENUM(Verdict)

    /// Most tasks that a round can have.
    static constexpr int mostTasks = 8;

    /// Draws the tasks from the library that the model has, which the person's own shortcuts never
    /// enter.
    explicit PracticeRound(QObject *parent = nullptr);
    /// @param random decides which tasks are drawn and in which order
    explicit PracticeRound(UniformInteger random, QObject *parent = nullptr);

    /// The tasks in the order in which they are asked; never empty.
    const QList<Shortcut> &items() const { return m_items; }
    /// The task that is asked now. An index that is out of range wraps.
    const Shortcut &current() const { return m_items.at(currentPosition()); }
    /// The tokens of what was pressed last; empty before the first press.
    const QStringList &captured() const { return m_captured; }
    /// None while the task is unanswered, then whether the first answer was right.
    std::optional<bool> result() const { return m_result; }

    QString title() const { return current().title; }
    /// The tokens that answer the task.
    QStringList keys() const { return current().keys; }
    /// Whether presses are to be told with KeyNaming::all: other tasks than the Mac's own ones have
    /// keys that its notation gives no press for.
    bool areAllKeysNamed() const;
    /// The tokens as they stand on caps.
    QStringList keyCaptions() const;
    /// The same in words, for screen readers.
    QString spokenKeys() const;
    /// What was pressed last as it stands on caps.
    QStringList capturedCaptions() const;
    /// The same as one text.
    QString capturedText() const { return capturedCaptions().join(u' '); }
    /// What was pressed last in words.
    QString spokenCaptured() const;
    Verdict verdict() const;
    /// The verdict in words; empty while unanswered.
    QString verdictText() const;
    /// "Úkol 3 / 8".
    QString taskText() const;
    /// "2 bodů".
    QString scoreText() const;
    /// Title of the button that goes on.
    QString nextText() const;
    /// Value of the progress bar, out of taskCount().
    int completedTasks() const { return index(); }
    int taskCount() const { return static_cast<int>(m_items.size()); }

    /// Takes a pressed combination. Only the first of a task is judged: it is right if it holds
    /// the same tokens as the task, in whatever order and however often; with all keys named, the
    /// same keys.
    Q_INVOKABLE void check(const QStringList &tokens);
    /// Goes on to the next task; after the last one, back to the first of the same tasks in a new
    /// order, with the score at zero.
    Q_INVOKABLE void next();

Q_SIGNALS:
    /// The person has asked for a shortcut while the screen was shown; it is the task now.
    void requested();

protected:
    void follow(AppModel &model) override;

private:
    /// Puts the shortcut that the person asked for, if any, first.
    void takeRequest();
    KeyStyle keyStyle() const { return model() ? model()->keyStyle() : KeyStyle::mac; }
    int index() const { return model() ? model()->practiceIndex() : 0; }
    int score() const { return model() ? model()->practiceScore() : 0; }
    /// Draws the tasks of a round from a library, and forgets what was pressed.
    void draw(const QList<Shortcut> &library);
    /// Draws them from the library that the model has chosen.
    void drawFor(const AppModel &model);
    /// Gives the tasks the keys that the library has for them now. One that it lacks or that no
    /// press answers any more changes places with another one of the library.
    void takeKeys(const AppModel &model);
    int currentPosition() const;
    bool isLastTask() const { return index() + 1 == taskCount(); }

    UniformInteger m_random;
    QList<Shortcut> m_items;
    /// The library that the tasks are drawn from.
    LibraryChoice m_libraryChoice = LibraryChoice::mac;
    /// The task that was asked for and is none of the library's, so that the library has no say in
    /// its keys; empty without one.
    QString m_ownTask;
    QStringList m_captured;
    std::optional<bool> m_result;
};

} // namespace hmatnik
