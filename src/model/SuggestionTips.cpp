#include "model/SuggestionTips.h"

#include "model/AppModel.h"

#include <QPointer>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

const auto practiceAction = u"practice"_s;
const auto muteAction = u"mute"_s;

constexpr qint64 silenceMilliseconds = 10LL * 60 * 1000;

// A message is a few lines; the title of a menu item can be of any length.
constexpr qsizetype longestTitle = 100;
constexpr qsizetype longestReason = 300;
constexpr qsizetype longestKeys = 100;

/// One line of text, cut with an ellipsis after a whole character.
QString bounded(QString text, qsizetype length)
{
    std::replace_if(
        text.begin(), text.end(),
        [](QChar c) {
            return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
                   c == QChar::ParagraphSeparator;
        },
        u' ');
    if (text.size() <= length)
        return text;
    text.truncate(length);
    if (text.back().isHighSurrogate())
        text.chop(1);
    return text + u'…';
}

} // namespace

SuggestionTips::SuggestionTips(AppModel &model, Shell shell)
    : m_model(model)
    , m_shell(std::move(shell))
{
    connect(&model, &AppModel::suggested, this, &SuggestionTips::show);
}

platform::Notification SuggestionTips::message(
    const Shortcut &shortcut, const QString &reason, KeyStyle style, bool canBePractised)
{
    QList<platform::Notification::Action> actions{{muteAction, u"Nezobrazovat"_s}};
    if (canBePractised)
        actions.prepend({practiceAction, u"Procvičit"_s});
    const QString keys = KeyNames::captions(shortcut.keys, style).join(u' ');
    return {
        .title = bounded(shortcut.title, longestTitle),
        .body = bounded(reason, longestReason) + u'\n' + bounded(keys, longestKeys),
        .actions = actions,
    };
}

void SuggestionTips::show()
{
    const std::optional<Shortcut> &suggestion = m_model.latestSuggestion();
    if (!suggestion || !m_model.tipsEnabled() || isInTheWay() || !isDue(suggestion->id))
        return;
    m_model.desktop().notifications->show(
        message(
            *suggestion, m_model.latestSuggestionReason(), m_model.keyStyle(),
            m_model.canBePractised(*suggestion)),
        [tips = QPointer<SuggestionTips>(this),
         shortcut = *suggestion](const QString &action, const QString &activationToken) {
            if (!tips)
                return;
            if (action == practiceAction) {
                tips->m_model.requestPractice(shortcut);
                tips->m_shell.showMainWindow(activationToken);
            } else if (action == muteAction) {
                tips->m_model.setTipsEnabled(false);
            }
        });
}

bool SuggestionTips::isInTheWay() const
{
    const bool isQuiz = m_model.selection().kind() == SidebarSelection::Kind::practice;
    return m_shell.isOverlayShown() || (isQuiz && m_shell.isMainWindowShown());
}

bool SuggestionTips::isDue(const QString &id)
{
    const QDateTime now = m_model.desktop().clock->now();
    // A clock that was set back would otherwise keep a shortcut silent until it has caught up.
    m_shown.removeIf([&](const auto &entry) {
        const qint64 passed = entry.value().msecsTo(now);
        return passed < 0 || passed >= silenceMilliseconds;
    });
    if (m_shown.contains(id))
        return false;
    m_shown.insert(id, now);
    return true;
}

} // namespace hmatnik
