#include "views/KeyCapture.h"

#include "FakeDesktop.h"
#include "model/AppModel.h"

#include <QKeyEvent>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

class KeyCaptureTest : public testing::Test
{
protected:
    KeyCaptureTest()
    {
        m_window.resize(400, 300);
        m_capture.setParentItem(m_window.contentItem());
        m_capture.setSize({200, 72});
        m_button.setParentItem(m_window.contentItem());
        m_button.setPosition({0, 100});
        m_button.setSize({100, 30});
        m_button.setActiveFocusOnTab(true);
        m_capture.setModel(&m_model);
        m_capture.setCompanion(&m_button);
        // Synthetic events carry no scan code.
        m_desktop.keyboardLayout->setKey(0, u"k"_s, u"K"_s);
        m_desktop.keyboardLayout->setDesktopKey(m_volume);
        m_window.show();
        m_window.requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    void click(const QPoint &point) { QTest::mouseClick(&m_window, Qt::LeftButton, {}, point); }
    /// Also keys that the test library has no text for.
    void tap(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, modifiers);
            QCoreApplication::sendEvent(&m_window, &event);
        }
    }

    /// A key by its place, as the desktop's own keys are told from others.
    void send(QEvent::Type type, quint32 scanCode, Qt::Key key)
    {
        QKeyEvent event(type, key, {}, scanCode, 0, 0);
        QCoreApplication::sendEvent(&m_window, &event);
    }

    static constexpr quint32 m_volume = 121;

    test::FakeDesktop m_desktop;
    AppModel m_model{m_desktop.desktop()};
    QQuickWindow m_window;
    QQuickItem m_button;
    KeyCapture m_capture;
};

TEST_F(KeyCaptureTest, TakesTheKeyboardWithTheFocusAndGivesItBack)
{
    EXPECT_FALSE(m_capture.hasKeyboard());
    click({100, 30});
    EXPECT_TRUE(m_capture.hasActiveFocus());
    EXPECT_TRUE(m_capture.hasKeyboard());
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 1);
    m_button.forceActiveFocus();
    EXPECT_FALSE(m_capture.hasKeyboard());
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 0);
}

TEST_F(KeyCaptureTest, GivesTheKeyboardBackWithTheScreenAndTheWindow)
{
    click({100, 30});
    m_capture.setVisible(false);
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 0);
    m_capture.setVisible(true);
    m_capture.forceActiveFocus();
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 1);

    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 0);
    other.close();
    m_window.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 1);

    {
        KeyCapture gone;
        gone.setModel(&m_model);
        gone.setParentItem(m_window.contentItem());
        gone.forceActiveFocus();
        EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 1);
    }
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 0);
}

TEST_F(KeyCaptureTest, TellsPressesInTheNotationOfShortcuts)
{
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    QTest::keyClick(&m_window, Qt::Key_K, Qt::ShiftModifier | Qt::MetaModifier);
    QTest::keyClick(&m_window, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(&m_window, Qt::Key_Left, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(pressed.size(), 3);
    EXPECT_EQ(pressed[0][0].toStringList(), (QStringList{u"⇧"_s, u"⌘"_s, u"K"_s}));
    EXPECT_EQ(pressed[1][0].toStringList(), (QStringList{u"⇧"_s, u"Tab"_s}));
    EXPECT_EQ(pressed[2][0].toStringList(), (QStringList{u"⌃"_s, u"⌥"_s, u"←"_s}));
    // Tab stayed here, too.
    EXPECT_TRUE(m_capture.hasActiveFocus());
}

TEST_F(KeyCaptureTest, ModifiersAloneAndHeldKeysTellNothing)
{
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    for (const Qt::Key key :
         {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta, Qt::Key_Super_L, Qt::Key_AltGr,
          Qt::Key_CapsLock, Qt::Key_NumLock})
        tap(key);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_K, {}, u"k"_s, true);
    QCoreApplication::sendEvent(&m_window, &repeated);
    EXPECT_TRUE(pressed.isEmpty());
}

TEST_F(KeyCaptureTest, KeysThatWriteNothingStillCount)
{
    m_desktop.keyboardLayout->setKey(0, {}, {});
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    tap(Qt::Key_F11, Qt::ControlModifier);
    ASSERT_EQ(pressed.size(), 1);
    EXPECT_EQ(pressed[0][0].toStringList(), QStringList{u"⌃"_s});
    // A key of no name at all switches layouts, say.
    tap(Qt::Key_unknown, Qt::AltModifier);
    EXPECT_EQ(pressed.size(), 1);
}

TEST_F(KeyCaptureTest, EscapeAndReturnCountAsWhatTheyWrite)
{
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    m_desktop.keyboardLayout->setKey(0, u"\x1b"_s, u"\x1b"_s);
    tap(Qt::Key_Escape, Qt::AltModifier | Qt::MetaModifier);
    m_desktop.keyboardLayout->setKey(0, u"\r"_s, u"\r"_s);
    tap(Qt::Key_Return);
    ASSERT_EQ(pressed.size(), 2);
    EXPECT_EQ(pressed[0][0].toStringList(), (QStringList{u"⌥"_s, u"⌘"_s, u"\x1b"_s}));
    EXPECT_EQ(pressed[1][0].toStringList(), QStringList{u"\r"_s});
}

TEST_F(KeyCaptureTest, AllKeysHaveNamesWhereTheyAreWanted)
{
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    m_desktop.keyboardLayout->setKey(0, u"\x1b"_s, u"\x1b"_s);
    m_capture.setAllKeysNamed(true);
    tap(Qt::Key_Escape);
    m_desktop.keyboardLayout->setKey(0, u"/"_s, u"?"_s);
    tap(Qt::Key_Question, Qt::ControlModifier | Qt::ShiftModifier);
    m_capture.setAsked({u"⌃"_s, u"?"_s});
    tap(Qt::Key_Question, Qt::ControlModifier | Qt::ShiftModifier);
    m_capture.setAllKeysNamed(false);
    tap(Qt::Key_Question, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(pressed.size(), 4);
    EXPECT_EQ(pressed[0][0].toStringList(), QStringList{u"Esc"_s});
    EXPECT_EQ(pressed[1][0].toStringList(), (QStringList{u"⌃"_s, u"⇧"_s, u"/"_s}));
    EXPECT_EQ(pressed[2][0].toStringList(), (QStringList{u"⌃"_s, u"?"_s}));
    EXPECT_EQ(pressed[3][0].toStringList(), (QStringList{u"⌃"_s, u"⇧"_s, u"/"_s}));
}

TEST_F(KeyCaptureTest, TakesTheFocusUnlessSomethingLiesOverIt)
{
    m_button.forceActiveFocus();
    m_capture.setEnabled(false);
    m_capture.takeFocus();
    QCoreApplication::processEvents();
    EXPECT_FALSE(m_capture.hasFocus());
    EXPECT_TRUE(m_button.hasActiveFocus());
    m_capture.setEnabled(true);
    m_capture.takeFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_capture.hasKeyboard(); }));
}

TEST_F(KeyCaptureTest, AKeyForTheDesktopIsPassedOnToIt)
{
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    send(QEvent::KeyPress, m_volume, Qt::Key_VolumeMute);
    // At once, so that a key that is held repeats for the desktop.
    EXPECT_FALSE(m_capture.hasKeyboard());
    EXPECT_TRUE(m_desktop.keyboardGrab->passedOn().empty());
    send(QEvent::KeyRelease, m_volume, Qt::Key_VolumeMute);
    EXPECT_EQ(m_desktop.keyboardGrab->passedOn(), std::vector<std::uint32_t>{m_volume});
    EXPECT_TRUE(pressed.isEmpty());
    EXPECT_TRUE(m_capture.hasActiveFocus());
}

TEST_F(KeyCaptureTest, AKeyForTheDesktopIsPassedOnOnce)
{
    click({100, 30});
    send(QEvent::KeyPress, m_volume, Qt::Key_VolumeMute);
    send(QEvent::KeyRelease, m_volume, Qt::Key_VolumeMute);
    // Where the desktop has no use for it, it comes back to us.
    send(QEvent::KeyPress, m_volume, Qt::Key_VolumeMute);
    send(QEvent::KeyRelease, m_volume, Qt::Key_VolumeMute);
    EXPECT_EQ(m_desktop.keyboardGrab->passedOn().size(), 1U);
}

TEST_F(KeyCaptureTest, AnotherKeyTakesTheKeyboardAgain)
{
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    send(QEvent::KeyPress, m_volume, Qt::Key_VolumeMute);
    tap(Qt::Key_K);
    EXPECT_TRUE(m_capture.hasKeyboard());
    EXPECT_EQ(pressed.size(), 1);
    // What came in between makes it another command.
    send(QEvent::KeyRelease, m_volume, Qt::Key_VolumeMute);
    EXPECT_TRUE(m_desktop.keyboardGrab->passedOn().empty());
}

TEST_F(KeyCaptureTest, TheKeyboardIsTakenAgainAfterAWhile)
{
    click({100, 30});
    send(QEvent::KeyPress, m_volume, Qt::Key_VolumeMute);
    send(QEvent::KeyRelease, m_volume, Qt::Key_VolumeMute);
    EXPECT_FALSE(m_capture.hasKeyboard());
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return m_capture.hasKeyboard(); }, 2 * KeyCapture::respite));
}

TEST_F(KeyCaptureTest, TheKeyboardIsNotTakenAgainWithoutTheFocus)
{
    click({100, 30});
    send(QEvent::KeyPress, m_volume, Qt::Key_VolumeMute);
    m_button.forceActiveFocus();
    const int attempts = m_desktop.keyboardGrab->attemptCount();
    QTest::qWait(KeyCapture::respite + 200);
    EXPECT_EQ(m_desktop.keyboardGrab->attemptCount(), attempts);
}

TEST_F(KeyCaptureTest, ComesBeforeTheProgramsShortcuts)
{
    click({100, 30});
    QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_Q, Qt::ControlModifier);
    asked.ignore();
    QCoreApplication::sendEvent(&m_capture, &asked);
    EXPECT_TRUE(asked.isAccepted());
}

TEST_F(KeyCaptureTest, AClickElsewhereLeadsOut)
{
    const int monitorsOfOthers = m_desktop.mouseMonitor->monitorCount();
    click({100, 30});
    click({300, 250});
    EXPECT_FALSE(m_capture.hasActiveFocus());
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 0);

    click({100, 30});
    m_desktop.mouseMonitor->press({2000, 2000});
    EXPECT_FALSE(m_capture.hasActiveFocus());
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 0);
    EXPECT_EQ(m_desktop.mouseMonitor->monitorCount(), monitorsOfOthers);
}

TEST_F(KeyCaptureTest, AClickOnTheCompanionDoesNot)
{
    click({100, 30});
    click({50, 115});
    EXPECT_TRUE(m_capture.hasActiveFocus());
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 1);
    m_button.setVisible(false);
    click({50, 115});
    EXPECT_FALSE(m_capture.hasActiveFocus());
}

TEST_F(KeyCaptureTest, ALoneModifierTappedTwiceLeadsOn)
{
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    tap(Qt::Key_Control);
    EXPECT_TRUE(m_capture.hasActiveFocus());
    tap(Qt::Key_Control);
    EXPECT_FALSE(m_capture.hasActiveFocus());
    EXPECT_TRUE(m_button.hasActiveFocus());
    EXPECT_EQ(m_desktop.keyboardGrab->heldCount(), 0);
    EXPECT_TRUE(pressed.isEmpty());
}

TEST_F(KeyCaptureTest, ARefusedKeyboardIsAskedForAgain)
{
    m_desktop.keyboardGrab->setRefusing(true);
    click({100, 30});
    EXPECT_FALSE(m_capture.hasKeyboard());
    m_desktop.keyboardGrab->setRefusing(false);
    tap(Qt::Key_Alt);
    EXPECT_TRUE(m_capture.hasKeyboard());
}

TEST_F(KeyCaptureTest, WithoutALayoutTheEventDecides)
{
    m_desktop.keyboardLayout->setAvailability(platform::Availability::no(u"Zkouška."_s));
    click({100, 30});
    const QSignalSpy pressed(&m_capture, &KeyCapture::keysPressed);
    QTest::keyClick(&m_window, Qt::Key_C, Qt::MetaModifier);
    ASSERT_EQ(pressed.size(), 1);
    EXPECT_EQ(pressed[0][0].toStringList(), (QStringList{u"⌘"_s, u"C"_s}));
}

} // namespace hmatnik
