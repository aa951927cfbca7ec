#include "app/MenuBarExtra.h"

#include "app/BrandIcon.h"
#include "app/ViewsLoader.h"
#include "views/TipsTexts.h"

#include <utility>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

/// A menu takes & for the mark of an access key.
QString menuText(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

} // namespace

MenuBarExtra::MenuBarExtra(
    AppModel &model, std::shared_ptr<platform::TrayHosts> hosts, const ShellActions &actions)
    : m_model(model)
    , m_hosts(std::move(hosts))
    , m_actions(actions)
{
    // The toolkit settles on a kind of tray when the first icon is made, and never again: an icon
    // made before its host would stay without one.
    m_arrival = m_hosts->onArrival([this] { showIcon(); });
    if (m_hosts->isPresent())
        showIcon();
}

MenuBarExtra::~MenuBarExtra() = default;

void MenuBarExtra::showIcon()
{
    if (m_icon)
        return;
    m_menu = std::make_unique<QMenu>();
    m_overlayAction = m_menu->addAction(QString(), this, [this] { m_actions.toggleOverlay(); });
    m_menu->addAction(TipsTexts::openLibrary(), this, [this] { m_actions.showMainWindow(); });
    m_menu->addSeparator();
    m_menu->addAction(TipsTexts::quit(), this, [this] { m_actions.quit(); });
    connect(&m_model, &AppModel::activeAppChanged, this, &MenuBarExtra::nameApplication);
    nameApplication();

    m_icon = std::make_unique<QSystemTrayIcon>(brandIcon());
    m_icon->setToolTip(u"Hmatník"_s);
    m_icon->setContextMenu(m_menu.get());
    connect(
        m_icon.get(), &QSystemTrayIcon::activated, this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            if (reason == QSystemTrayIcon::Trigger)
                toggleTips();
        });
    m_icon->show();
}

void MenuBarExtra::nameApplication()
{
    m_overlayAction->setText(menuText(TipsTexts::showOverlay(m_model.activeApp())));
}

void MenuBarExtra::toggleTips()
{
    if (!m_tips) {
        ViewsModule *views = ViewsLoader::module();
        if (!views)
            return;
        m_tips = views->createMenuBar(m_model, m_actions);
    }
    m_tips->toggleBeside(m_icon->geometry());
    m_model.refreshSystemKeys();
}

} // namespace hmatnik
