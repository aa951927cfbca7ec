#include "platform/linux/PortalAppearance.h"

#include "AnswerThread.h"
#include "PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QMap>
#include <QMutex>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString portalInterface = u"org.freedesktop.portal.Settings"_s;
const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString gnomeAccessibilityGroup = u"org.gnome.desktop.a11y.interface"_s;
const QString gnomeGroup = u"org.gnome.desktop.interface"_s;

/// Answers questions for settings from a thread of its own, as another process would.
class FakePortal final : public QDBusVirtualObject
{
public:
    explicit FakePortal(const test::PrivateBus &bus)
        : m_bus(bus.connect(u"portal-%1"_s.arg(++s_count)))
    {
        m_thread.run([this] { m_bus.registerVirtualObject(portalPath, this); });
    }
    ~FakePortal() override
    {
        m_thread.run([this] { m_bus.unregisterObject(portalPath); });
        QDBusConnection::disconnectFromBus(m_bus.name());
    }

    void appear() { ASSERT_TRUE(m_bus.registerService(portalName)); }
    void set(const QString &group, const QString &key, const QVariant &value)
    {
        const QMutexLocker lock(&m_mutex);
        m_values[group + u'/' + key] = value;
    }
    void change(const QString &group, const QString &key, const QVariant &value)
    {
        set(group, key, value);
        QDBusMessage signal =
            QDBusMessage::createSignal(portalPath, portalInterface, u"SettingChanged"_s);
        signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        m_bus.send(signal);
    }
    void setSilent(bool silent) { m_isSilent = silent; }
    int questions() const { return m_questions; }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        ++m_questions;
        if (m_isSilent)
            return true;
        const QMutexLocker lock(&m_mutex);
        const auto found = m_values.constFind(
            message.arguments().value(0).toString() + u'/' +
            message.arguments().value(1).toString());
        if (found == m_values.constEnd())
            return bus.send(message.createErrorReply(
                u"org.freedesktop.portal.Error.NotFound"_s, u"no such setting"_s));
        // Read wraps the value twice.
        return bus.send(message.createReply(
            QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(*found))))));
    }

private:
    static inline int s_count = 0;
    QDBusConnection m_bus;
    QMutex m_mutex;
    QMap<QString, QVariant> m_values;
    std::atomic<bool> m_isSilent = false;
    std::atomic<int> m_questions = 0;
    // Goes first.
    test::AnswerThread m_thread{*this};
};

} // namespace

class PortalAppearanceTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(m_bus.isRunning()) << "dbus-daemon is missing"; }
    ~PortalAppearanceTest() override { QDBusConnection::disconnectFromBus(u"ours"_s); }

    test::PrivateBus m_bus;
    QDBusConnection m_ours = m_bus.connect(u"ours"_s);
};

TEST_F(PortalAppearanceTest, KnowsTheColoursAtOnceWhenThePortalRuns)
{
    for (const auto &[value, expected] :
         {std::pair{0U, Appearance::ColorScheme::NoPreference},
          std::pair{1U, Appearance::ColorScheme::Dark},
          std::pair{2U, Appearance::ColorScheme::Light},
          std::pair{77U, Appearance::ColorScheme::NoPreference}}) {
        FakePortal portal(m_bus);
        portal.set(appearanceGroup, u"color-scheme"_s, value);
        portal.appear();
        const PortalAppearance appearance(m_ours);
        EXPECT_EQ(appearance.colorScheme(), expected);
        EXPECT_FALSE(appearance.reducedMotion());
    }
}

TEST_F(PortalAppearanceTest, ReadsReducedMotionFromEitherPlace)
{
    FakePortal portal(m_bus);
    portal.appear();
    EXPECT_FALSE(PortalAppearance(m_ours).reducedMotion());
    portal.set(gnomeGroup, u"enable-animations"_s, false);
    EXPECT_TRUE(PortalAppearance(m_ours).reducedMotion());
    portal.set(appearanceGroup, u"reduced-motion"_s, 0U);
    EXPECT_FALSE(PortalAppearance(m_ours).reducedMotion()) << "the common setting counts first";
    portal.set(gnomeGroup, u"enable-animations"_s, true);
    portal.set(appearanceGroup, u"reduced-motion"_s, 1U);
    EXPECT_TRUE(PortalAppearance(m_ours).reducedMotion());
}

TEST_F(PortalAppearanceTest, ReadsContrastFromEitherPlace)
{
    FakePortal portal(m_bus);
    portal.appear();
    EXPECT_FALSE(PortalAppearance(m_ours).highContrast());
    portal.set(gnomeAccessibilityGroup, u"high-contrast"_s, true);
    EXPECT_TRUE(PortalAppearance(m_ours).highContrast());
    portal.set(appearanceGroup, u"contrast"_s, 0U);
    EXPECT_FALSE(PortalAppearance(m_ours).highContrast()) << "the common setting counts first";
    portal.set(gnomeAccessibilityGroup, u"high-contrast"_s, false);
    portal.set(appearanceGroup, u"contrast"_s, 1U);
    EXPECT_TRUE(PortalAppearance(m_ours).highContrast());
}

TEST_F(PortalAppearanceTest, FollowsTheContrast)
{
    FakePortal portal(m_bus);
    portal.appear();
    PortalAppearance appearance(m_ours);
    int changes = 0;
    const auto subscription = appearance.onChange([&] { ++changes; });
    portal.change(appearanceGroup, u"contrast"_s, 1U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 1; }));
    EXPECT_TRUE(appearance.highContrast());
    portal.change(appearanceGroup, u"contrast"_s, u"no number"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
    EXPECT_FALSE(appearance.highContrast());
}

TEST_F(PortalAppearanceTest, FollowsChanges)
{
    FakePortal portal(m_bus);
    portal.set(appearanceGroup, u"color-scheme"_s, 2U);
    portal.appear();
    PortalAppearance appearance(m_ours);
    int changes = 0;
    auto subscription = appearance.onChange([&] { ++changes; });
    portal.change(appearanceGroup, u"color-scheme"_s, 1U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 1; }));
    EXPECT_EQ(appearance.colorScheme(), Appearance::ColorScheme::Dark);
    portal.change(gnomeGroup, u"enable-animations"_s, false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
    EXPECT_TRUE(appearance.reducedMotion());
    portal.change(gnomeGroup, u"gtk-theme"_s, u"Other"_s);
    portal.change(appearanceGroup, u"color-scheme"_s, 1U);
    portal.change(appearanceGroup, u"color-scheme"_s, u"no number"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 3; }));
    EXPECT_EQ(appearance.colorScheme(), Appearance::ColorScheme::NoPreference);
    subscription.cancel();
    portal.change(appearanceGroup, u"color-scheme"_s, 2U);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return appearance.colorScheme() == Appearance::ColorScheme::Light; }));
    EXPECT_EQ(changes, 3);
}

TEST_F(PortalAppearanceTest, APortalThatComesLaterIsNoticed)
{
    PortalAppearance appearance(m_ours);
    EXPECT_EQ(appearance.colorScheme(), Appearance::ColorScheme::NoPreference);
    int changes = 0;
    const auto subscription = appearance.onChange([&] { ++changes; });
    FakePortal portal(m_bus);
    portal.set(appearanceGroup, u"color-scheme"_s, 1U);
    portal.appear();
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 1; }));
    EXPECT_EQ(appearance.colorScheme(), Appearance::ColorScheme::Dark);
    portal.change(appearanceGroup, u"color-scheme"_s, 2U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
}

TEST_F(PortalAppearanceTest, ASilentPortalDelaysTheStartByATenthOfASecondAtMost)
{
    FakePortal portal(m_bus);
    portal.set(appearanceGroup, u"color-scheme"_s, 1U);
    portal.setSilent(true);
    portal.appear();
    QElapsedTimer timer;
    timer.start();
    PortalAppearance appearance(m_ours);
    EXPECT_LT(timer.elapsed(), 300) << "many questions, one wait";
    EXPECT_EQ(appearance.colorScheme(), Appearance::ColorScheme::NoPreference);
    portal.change(appearanceGroup, u"color-scheme"_s, 1U);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return appearance.colorScheme() == Appearance::ColorScheme::Dark; }));
}

TEST_F(PortalAppearanceTest, WithoutABusThereIsNoPreference)
{
    PortalAppearance appearance(QDBusConnection(u"not connected"_s));
    EXPECT_EQ(appearance.colorScheme(), Appearance::ColorScheme::NoPreference);
    EXPECT_FALSE(appearance.reducedMotion());
    EXPECT_TRUE(appearance.onChange([] {}));
}

} // namespace hmatnik::platform
