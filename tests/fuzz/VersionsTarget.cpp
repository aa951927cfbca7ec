#include "FuzzTargets.h"
#include "Require.h"
#include "update/UpdateChecker.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

bool isNewer(const QString &a, const QString &b)
{
    return UpdateChecker::isNewer(a, b);
}

bool isAlike(const QString &a, const QString &b)
{
    return !isNewer(a, b) && !isNewer(b, a);
}

} // namespace

void fuzzVersions(const QByteArray &bytes)
{
    const QStringList lines = QString::fromUtf8(bytes).split(u'\n');
    const QString a = lines.value(0);
    const QString b = lines.value(1);
    const QString c = lines.value(2);

    for (const QString &version : {a, b, c}) {
        require(!isNewer(version, version), "no version is newer than itself");
        require(isAlike(version, version + u".0"_s), "a missing place counts as 0");
        require(isAlike(version, version + u".x"_s), "what is no number is left out");
        require(isAlike(version, u"x."_s + version), "wherever it stands");
        require(isNewer(version + u".1"_s, version), "one more place makes it newer");
        require(isNewer(version, version + u".-1"_s), "and one below 0 older");
        require(isNewer(u"2."_s + version, u"1."_s + version), "the first places decide");
    }
    require(!isNewer(a, b) || !isNewer(b, a), "of two versions one is newer at most");
    require(!isNewer(a, b) || !isNewer(b, c) || isNewer(a, c), "newer goes on and on");
    require(!isAlike(a, b) || !isAlike(b, c) || isAlike(a, c), "and so does alike");
    require(
        !isAlike(a, b) || (isNewer(a, c) == isNewer(b, c) && isNewer(c, a) == isNewer(c, b)),
        "versions that are alike compare alike");
    require(
        isNewer(u"7."_s + a, u"7."_s + b) == isNewer(a, b), "an equal first place changes nothing");
}

} // namespace hmatnik::test
