#pragma once

#include "app/AppDelegate.h"
#include "app/InstanceService.h"
#include "model/AppModel.h"
#include "model/SuggestionTips.h"
#include "platform/Desktop.h"
#include "update/UpdateChecker.h"

#include <memory>

namespace hmatnik {

class MenuBarExtra;

/// The application: owns what lives as long as the process and starts it in order.
class HmatnikApp
{
public:
    explicit HmatnikApp(const platform::Desktop &desktop);
    HmatnikApp(const HmatnikApp &) = delete;
    HmatnikApp &operator=(const HmatnikApp &) = delete;
    ~HmatnikApp();

    /// Runs the event loop to the program's end. Gives the exit code.
    int run();

private:
    platform::Desktop m_desktop;
    AppDelegate m_delegate;
    AppModel m_model;
    UpdateChecker m_updateChecker;
    SuggestionTips m_tips;
    std::unique_ptr<MenuBarExtra> m_menuBarExtra;
};

} // namespace hmatnik
