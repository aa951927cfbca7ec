#include "views/PracticeRound.h"

#include "model/KeyNames.h"
#include "model/ShortcutLibrary.h"
#include "views/Shuffle.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

QSet<QString> asSet(const QStringList &tokens)
{
    return {tokens.cbegin(), tokens.cend()};
}

QList<Shortcut>::const_iterator positionOf(const QString &id, const QList<Shortcut> &shortcuts)
{
    return std::find_if(shortcuts.cbegin(), shortcuts.cend(), [&](const Shortcut &shortcut) {
        return shortcut.id == id;
    });
}

} // namespace

PracticeRound::PracticeRound(QObject *parent)
    : PracticeRound(systemUniformInteger(), parent)
{
}

PracticeRound::PracticeRound(UniformInteger random, QObject *parent)
    : ScreenState(parent)
    , m_random(std::move(random))
{
    draw(ShortcutLibrary::all());
}

void PracticeRound::draw(const QList<Shortcut> &library)
{
    m_items = library;
    shuffle(m_items, m_random);
    if (m_items.size() > mostTasks)
        m_items.resize(mostTasks);
    m_ownTask.clear();
    m_captured.clear();
    m_result.reset();
}

void PracticeRound::drawFor(const AppModel &model)
{
    QList<Shortcut> tasks = model.library();
    // The notation of the Mac's library has keys that no press gives; there that is as it is.
    if (model.libraryChoice() == LibraryChoice::desktop)
        tasks.removeIf([&](const Shortcut &shortcut) { return !model.canBePractised(shortcut); });
    m_libraryChoice = model.libraryChoice();
    draw(tasks);
}

void PracticeRound::takeKeys(const AppModel &model)
{
    if (m_libraryChoice != LibraryChoice::desktop)
        return;
    const QList<Shortcut> &library = model.library();
    for (qsizetype task = 0; task < m_items.size(); ++task) {
        const QString &id = m_items.at(task).id;
        // What was judged stays as it was judged, and the person's own keys are no business of the
        // library's.
        if ((m_result && task == currentPosition()) || id == m_ownTask)
            continue;
        const auto known = positionOf(id, library);
        if (known != library.cend() && model.canBePractised(*known)) {
            m_items[task] = *known;
            continue;
        }
        QList<Shortcut> others = library;
        others.removeIf([&](const Shortcut &other) {
            return positionOf(other.id, m_items) != m_items.cend() || !model.canBePractised(other);
        });
        if (!others.isEmpty())
            m_items[task] = others.at(m_random(static_cast<int>(others.size())));
    }
}

void PracticeRound::follow(AppModel &model)
{
    connect(&model, &AppModel::practiceIndexChanged, this, &PracticeRound::changed);
    connect(&model, &AppModel::practiceScoreChanged, this, &PracticeRound::changed);
    connect(&model, &AppModel::keyStyleChanged, this, &PracticeRound::changed);
    connect(&model, &AppModel::libraryChanged, this, [this, &model] {
        if (model.libraryChoice() == m_libraryChoice)
            takeKeys(model);
        else
            drawFor(model);
        Q_EMIT changed();
    });
    if (model.libraryChoice() != LibraryChoice::mac)
        drawFor(model);
    connect(&model, &AppModel::practiceRequested, this, [this] {
        drawFor(*this->model());
        takeRequest();
        this->model()->setPracticeIndex(0);
        this->model()->setPracticeScore(0);
        Q_EMIT changed();
        Q_EMIT requested();
    });
    takeRequest();
}

void PracticeRound::takeRequest()
{
    const std::optional<Shortcut> asked = model()->takePracticeRequest();
    if (!asked)
        return;
    // The library may have other keys for it by now than when it was suggested.
    const QList<Shortcut> &library = model()->library();
    const auto known = positionOf(asked->id, library);
    const bool isLibrarys = known != library.cend();
    m_ownTask = isLibrarys ? QString() : asked->id;
    // The round keeps its length: the asked one changes places with the first, or, if it was not
    // drawn, takes that place.
    const auto drawn = positionOf(asked->id, m_items);
    if (drawn != m_items.cend())
        m_items.swapItemsAt(0, drawn - m_items.cbegin());
    else
        m_items.front() = isLibrarys ? *known : *asked;
    takeKeys(*model());
}

int PracticeRound::currentPosition() const
{
    const int count = taskCount();
    const int position = index() % count;
    return position < 0 ? position + count : position;
}

bool PracticeRound::areAllKeysNamed() const
{
    return model() && model()->practiceNaming(current()) == KeyNaming::all;
}

QStringList PracticeRound::keyCaptions() const
{
    return KeyNames::captions(keys(), keyStyle());
}

QStringList PracticeRound::capturedCaptions() const
{
    return KeyNames::captions(m_captured, keyStyle());
}

QString PracticeRound::spokenKeys() const
{
    return KeyNames::spoken(keys(), keyStyle());
}

QString PracticeRound::spokenCaptured() const
{
    return KeyNames::spoken(m_captured, keyStyle());
}

PracticeRound::Verdict PracticeRound::verdict() const
{
    if (!m_result)
        return Verdict::Unanswered;
    return *m_result ? Verdict::Correct : Verdict::Wrong;
}

QString PracticeRound::verdictText() const
{
    if (!m_result)
        return {};
    return *m_result ? u"Správně"_s : u"Zkuste si zapamatovat správnou kombinaci"_s;
}

QString PracticeRound::taskText() const
{
    return u"Úkol %1 / %2"_s.arg(index() + 1).arg(taskCount());
}

QString PracticeRound::scoreText() const
{
    return u"%1 bodů"_s.arg(score());
}

QString PracticeRound::nextText() const
{
    return isLastTask() ? u"Začít znovu"_s : u"Další úkol"_s;
}

void PracticeRound::check(const QStringList &tokens)
{
    if (!model())
        return;
    m_captured = tokens;
    if (!m_result) {
        m_result = areAllKeysNamed() ? KeyNames::areSameKeys(tokens, keys())
                                     : asSet(tokens) == asSet(keys());
        if (*m_result)
            model()->setPracticeScore(score() + 1);
    }
    Q_EMIT changed();
}

void PracticeRound::next()
{
    if (!model())
        return;
    // The verdict goes first, so that nobody is told the old one about the new task.
    m_captured.clear();
    m_result.reset();
    takeKeys(*model());
    if (isLastTask()) {
        shuffle(m_items, m_random);
        model()->setPracticeIndex(0);
        model()->setPracticeScore(0);
    } else {
        model()->setPracticeIndex(index() + 1);
    }
    Q_EMIT changed();
}

} // namespace hmatnik
