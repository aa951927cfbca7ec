#include "platform/linux/BrowserUrlOpener.h"

#include <QDesktopServices>
#include <QList>
#include <QObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::platform {

namespace {

const QString schemes[] = {u"http"_s,       u"https"_s,  u"file"_s,   u"ftp"_s,
                           u"javascript"_s, u"mailto"_s, u"hmatnik"_s};

/// Takes the addresses that would go to other programs.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser()
    {
        for (const QString &scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "take");
    }
    ~Browser() override
    {
        for (const QString &scheme : schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }

    Q_SLOT void take(const QUrl &url) { taken.append(url); }

    QList<QUrl> taken;
};

} // namespace

TEST(BrowserUrlOpener, HandsWebAddressesToTheBrowser)
{
    Browser browser;
    BrowserUrlOpener opener;
    const QList<QUrl> addresses{
        QUrl(u"https://a.example/x?y=a%20b#z"_s), QUrl(u"http://a.example"_s)};
    for (const QUrl &address : addresses)
        EXPECT_TRUE(opener.open(address));
    EXPECT_EQ(browser.taken, addresses);
}

TEST(BrowserUrlOpener, HandsNothingElseToAnyProgram)
{
    Browser browser;
    BrowserUrlOpener opener;
    for (const QString &text :
         {u""_s, u"a.example"_s, u"/etc/passwd"_s, u"https:///x"_s, u"file:///etc/passwd"_s,
          u"file://a.example/x"_s, u"ftp://a.example/"_s, u"javascript://a.example/%0aalert(1)"_s,
          u"mailto:a@a.example"_s, u"hmatnik://a.example/"_s})
        EXPECT_FALSE(opener.open(QUrl(text))) << qUtf8Printable(text);
    EXPECT_TRUE(browser.taken.isEmpty());
}

} // namespace hmatnik::platform

#include "BrowserUrlOpenerTest.moc"
