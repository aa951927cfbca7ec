#include "views/SaveNoticeState.h"

#include <utility>

namespace hmatnik {

using namespace Qt::StringLiterals;
using Problem = platform::Preferences::SaveProblem;

namespace {

QString reason(Problem problem)
{
    switch (problem) {
    case Problem::NoRoom:
        return u"Na disku není místo."_s;
    case Problem::NotPermitted:
        return u"Do složky s nastavením nelze zapisovat."_s;
    case Problem::Busy:
        return u"Nastavení drží jiný spuštěný Hmatník."_s;
    case Problem::None:
    case Problem::Other:
        break;
    }
    return u"Nastavení teď nejde na disk zapsat."_s;
}

} // namespace

SaveNoticeState::SaveNoticeState(
    std::shared_ptr<platform::Preferences> preferences, QObject *parent)
    : QObject(parent)
    , m_preferences(std::move(preferences))
    , m_onProblem(m_preferences->onSaveProblem([this] { problemChanged(); }))
{
}

bool SaveNoticeState::isShown() const
{
    return m_preferences->saveProblem() != Problem::None && !m_isHidden;
}

QString SaveNoticeState::headline()
{
    return u"Změny se nepodařilo uložit"_s;
}

QString SaveNoticeState::detail() const
{
    return (m_hasFailedAgain ? u"Ani teď to nešlo. "_s : QString()) +
           reason(m_preferences->saveProblem()) +
           u" Změny zatím zůstávají jen v paměti a ukončením Hmatníku by se ztratily."_s;
}

void SaveNoticeState::tryAgain()
{
    if (m_preferences->save())
        return;
    m_hasFailedAgain = true;
    Q_EMIT changed();
}

void SaveNoticeState::hide()
{
    m_isHidden = true;
    Q_EMIT changed();
}

void SaveNoticeState::problemChanged()
{
    if (m_preferences->saveProblem() == Problem::None) {
        m_hasFailedAgain = false;
        m_isHidden = false;
    }
    Q_EMIT changed();
}

} // namespace hmatnik
