#include "update/UpdateBannerState.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

UpdateBannerState::UpdateBannerState(
    UpdateChecker *checker, std::shared_ptr<platform::UrlOpener> urlOpener, QObject *parent)
    : QObject(parent)
    , m_checker(checker)
    , m_urlOpener(std::move(urlOpener))
{
    connect(checker, &UpdateChecker::latestVersionChanged, this, &UpdateBannerState::changed);
    connect(checker, &UpdateChecker::downloadURLChanged, this, &UpdateBannerState::changed);
    connect(checker, &UpdateChecker::notesChanged, this, &UpdateBannerState::changed);
}

QString UpdateBannerState::headline() const
{
    return u"Dostupná nová verze "_s + m_checker->latestVersion().value_or(QString());
}

QString UpdateBannerState::detail() const
{
    if (const auto &notes = m_checker->notes())
        return *notes;
    return u"Ty máš verzi "_s + m_checker->currentVersion() +
           u". Stáhni novou a přetáhni do Applications."_s;
}

bool UpdateBannerState::canDownload() const
{
    return m_checker->downloadURL().has_value();
}

void UpdateBannerState::skip()
{
    m_checker->setDismissedVersion(m_checker->latestVersion());
}

void UpdateBannerState::download()
{
    if (const auto &url = m_checker->downloadURL())
        m_urlOpener->open(*url);
}

} // namespace hmatnik
