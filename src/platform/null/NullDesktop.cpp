#include "platform/null/NullDesktop.h"

#include <QCoreApplication>

#include <map>
#include <utility>

namespace hmatnik::platform {

namespace {

class MemoryPreferences final : public Preferences
{
public:
    QVariant value(const QString &key) const override
    {
        const auto found = m_values.find(key);
        return found == m_values.end() ? QVariant() : found->second;
    }
    bool setValue(const QString &key, const QVariant &value) override
    {
        m_values[key] = value;
        return false;
    }
    bool removeValue(const QString &key) override { return m_values.erase(key) == 0; }
    // Nothing is ever stored here, so there is nothing to take up, and no use in trying again.
    void refresh() override {}
    Subscription onRefresh(std::function<void()>) override { return {}; }
    void setMerge(Merge) override {}
    SaveProblem saveProblem() const override { return SaveProblem::None; }
    bool save() override { return false; }
    Subscription onSaveProblem(std::function<void()>) override { return {}; }

private:
    std::map<QString, QVariant> m_values;
};

class NullWorkspace final : public Workspace
{
public:
    explicit NullWorkspace(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    std::optional<RunningApplication> frontmostApplication() override { return std::nullopt; }
    Subscription onActivation(ActivationHandler) override { return {}; }
    bool bringToFront(std::uintptr_t) override { return false; }
    bool blendsWindows() override { return false; }
    std::int32_t ownProcessIdentifier() const override
    {
        return static_cast<std::int32_t>(QCoreApplication::applicationPid());
    }

private:
    QString m_reason;
};

class NullElement final : public AccessibleElement
{
public:
    AttributeResult attribute(QStringView) const override { return {-1, {}}; }
};

class NullAccessibility final : public Accessibility
{
public:
    explicit NullAccessibility(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    bool isTrusted() const override { return false; }
    bool waitForTrust(const std::stop_token &) override { return false; }
    Subscription onTrustChange(std::function<void()>) override { return {}; }
    void requestTrust() override {}
    AccessibleElementPtr applicationElement(std::int32_t, const std::stop_token &) override
    {
        return std::make_shared<NullElement>();
    }
    ElementAtPosition elementAtPosition(float, float) override { return {-1, nullptr}; }

private:
    QString m_reason;
};

class NullMouseMonitor final : public MouseMonitor
{
public:
    explicit NullMouseMonitor(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    Subscription monitorLeftPresses(PressHandler) override { return {}; }

private:
    QString m_reason;
};

class NullHotKeys final : public HotKeys
{
public:
    explicit NullHotKeys(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    Subscription registerControlOptionSpace(std::function<void()>) override { return {}; }

private:
    QString m_reason;
};

class NullLoginItem final : public LoginItem
{
public:
    explicit NullLoginItem(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    bool isEnabled() const override { return false; }
    std::optional<QString> setEnabled(bool) override { return m_reason; }

private:
    QString m_reason;
};

class NullAppearance final : public Appearance
{
public:
    ColorScheme colorScheme() const override { return ColorScheme::NoPreference; }
    bool reducedMotion() const override { return false; }
    bool highContrast() const override { return false; }
    Subscription onChange(std::function<void()>) override { return {}; }
};

class NullKeyboardLayout final : public KeyboardLayout
{
public:
    explicit NullKeyboardLayout(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    KeyCharacters characters(std::uint32_t, std::uint32_t) override { return {}; }
    std::optional<int> digit(std::uint32_t) const override { return std::nullopt; }

private:
    QString m_reason;
};

class NullKeyboardGrab final : public KeyboardGrab
{
public:
    explicit NullKeyboardGrab(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    Subscription grab(QWindow &) override { return {}; }
    void passOn(std::uint32_t, std::uint32_t) override {}

private:
    QString m_reason;
};

class NullUrlOpener final : public UrlOpener
{
public:
    explicit NullUrlOpener(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }

protected:
    bool openWebAddress(const QUrl &) override { return false; }

private:
    QString m_reason;
};

class NullTrayHosts final : public TrayHosts
{
public:
    explicit NullTrayHosts(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    bool isPresent() override { return false; }
    Subscription onArrival(std::function<void()>) override { return {}; }

private:
    QString m_reason;
};

class NullNotifications final : public Notifications
{
public:
    explicit NullNotifications(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    void show(const Notification &, ActionHandler) override {}

private:
    QString m_reason;
};

class NullSystemShortcuts final : public SystemShortcuts
{
public:
    explicit NullSystemShortcuts(const QString &reason)
        : m_reason(reason)
    {
    }
    Availability availability() const override { return Availability::no(m_reason); }
    void read(Handler handler) override
    {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [handler = std::move(handler)] { handler(std::nullopt); },
            Qt::QueuedConnection);
    }

private:
    QString m_reason;
};

} // namespace

Desktop makeNullDesktop(const QString &reason)
{
    return {
        .preferences = std::make_shared<MemoryPreferences>(),
        .workspace = std::make_shared<NullWorkspace>(reason),
        .accessibility = std::make_shared<NullAccessibility>(reason),
        .mouseMonitor = std::make_shared<NullMouseMonitor>(reason),
        .hotKeys = std::make_shared<NullHotKeys>(reason),
        .loginItem = std::make_shared<NullLoginItem>(reason),
        .appearance = std::make_shared<NullAppearance>(),
        .urlOpener = std::make_shared<NullUrlOpener>(reason),
        .clock = std::make_shared<SystemClock>(),
        .keyboardLayout = std::make_shared<NullKeyboardLayout>(reason),
        .keyboardGrab = std::make_shared<NullKeyboardGrab>(reason),
        .trayHosts = std::make_shared<NullTrayHosts>(reason),
        .notifications = std::make_shared<NullNotifications>(reason),
        .systemShortcuts = std::make_shared<NullSystemShortcuts>(reason),
    };
}

} // namespace hmatnik::platform
