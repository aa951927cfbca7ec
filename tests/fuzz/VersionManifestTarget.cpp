#include "FuzzTargets.h"
#include "Require.h"
#include "fakes/FakePreferences.h"
#include "fakes/FakeUrlOpener.h"
#include "update/FakeManifestSource.h"
#include "update/UpdateBannerState.h"
#include "update/VersionManifest.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

void requireRoundTrip(const VersionManifest &manifest)
{
    QJsonObject object{{u"version"_s, manifest.version}, {u"url"_s, manifest.url}};
    if (manifest.notes)
        object.insert(u"notes"_s, *manifest.notes);
    require(
        VersionManifest::decode(QJsonDocument(object).toJson()) == manifest,
        "a manifest that is written anew reads the same");
}

} // namespace

void fuzzVersionManifest(const QByteArray &bytes)
{
    const auto manifest = VersionManifest::decode(bytes);
    if (manifest)
        requireRoundTrip(*manifest);

    auto *source = new FakeManifestSource; // the checker's
    const auto preferences = std::make_shared<FakePreferences>();
    const auto opener = std::make_shared<FakeUrlOpener>();
    const auto current = u"1.2"_s;
    UpdateChecker checker(preferences, std::unique_ptr<ManifestSource>(source), current);
    UpdateBannerState banner(&checker, opener);
    preferences->clearWrites();
    checker.checkForUpdate();
    source->answer(bytes);
    require(preferences->writes().isEmpty(), "asking stores nothing");

    if (!manifest) {
        require(
            !checker.latestVersion() && !checker.notes() && !checker.downloadURL(),
            "what is no manifest changes nothing");
    } else {
        require(checker.latestVersion() == manifest->version, "the version is taken over");
        require(checker.notes() == manifest->notes, "the notes are taken over");
    }
    require(
        checker.isUpdateAvailable() ==
            (manifest && UpdateChecker::isNewer(manifest->version, current)),
        "the banner shows exactly if the version is newer");

    banner.download();
    require(
        opener->opened().size() == (banner.canDownload() ? 1 : 0), "without an address, no page");
    for (const QUrl &url : opener->opened()) {
        require(
            (url.scheme() == u"https" || url.scheme() == u"http") && !url.host().isEmpty(),
            "only web pages are opened");
    }

    banner.skip();
    require(!checker.isUpdateAvailable(), "a version that was skipped is not offered");
    checker.checkForUpdate();
    source->answer(bytes);
    require(!checker.isUpdateAvailable(), "nor when it is found again");
}

} // namespace hmatnik::test
