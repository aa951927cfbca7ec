#include "FuzzTargets.h"
#include "Require.h"
#include "ScratchFolder.h"
#include "platform/linux/DesktopEntries.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

using platform::DesktopEntries;
using Name = std::optional<QString>;

constexpr qsizetype maximumNameLength = 256;

const auto fileName = u"org.example.Fuzzed.desktop"_s;
const auto neighbour = u"org.example.Neighbour"_s;
const auto neighbourName = u"Soused"_s;

Name nameFor(const ScratchFolder &folder, const DesktopEntries::WindowIdentity &window)
{
    return DesktopEntries({folder.path({})}).nameFor(window);
}

void requireSensible(const Name &name)
{
    if (!name)
        return;
    require(!name->isEmpty(), "a name is not empty");
    require(name->size() <= maximumNameLength, "a name has an end");
    require(*name == name->simplified(), "a name is one line");
    require(name->isValidUtf16(), "a name is a whole text");
}

/// A name as a desktop entry holds it.
QByteArray escaped(const QString &name)
{
    return QString(name).replace(u'\\', u"\\\\"_s).toUtf8();
}

/// Any name that an application may have is read as it was meant.
void requireNameComesBack(const ScratchFolder &folder, const QByteArray &bytes)
{
    QString name = QString::fromUtf8(bytes);
    name.remove(QChar::Null); // no text file has it
    name = name.simplified();
    folder.write(
        fileName, "[Desktop Entry]\nType=Application\nStartupWMClass=fuzzed-class\nName=" +
                      escaped(name) + "\n");
    const Name read = nameFor(folder, {u"fuzzed-class"_s, {}, {}});
    requireSensible(read);
    require(read.has_value() == !name.isEmpty(), "an application with a name has one");
    if (name.size() <= maximumNameLength)
        require(read.value_or(QString()) == name, "a name is read as it was meant");
    else
        require(name.startsWith(*read), "a long name loses its end only");
}

} // namespace

void fuzzDesktopEntry(const QByteArray &bytes)
{
    static const ScratchFolder folder = [] {
        qputenv("LC_ALL", "C.UTF-8");
        qputenv("LANGUAGE", "cs");
        return ScratchFolder();
    }();
    folder.write(neighbour + u".desktop"_s, "[Desktop Entry]\nName=" + neighbourName.toUtf8());
    folder.write(fileName, bytes);

    const Name byId = nameFor(folder, {{}, {}, u"org.example.Fuzzed"_s});
    requireSensible(byId);
    require(
        nameFor(folder, {u"org.example.fuzzed"_s, u"fuzzed"_s, {}}) == byId,
        "case in an id is no matter");
    require(nameFor(folder, {u"Fuzzed"_s, {}, {}}) == byId, "the last part of an id will do");

    // Asked by its own id, an entry is not in another's way, unless that takes its windows.
    const Name other = nameFor(folder, {neighbour, {}, neighbour});
    require(
        other == neighbourName || (bytes.contains(neighbour.toUtf8()) && other == byId),
        "an entry does not spoil another");
    require(
        !nameFor(folder, {u"nobody"_s, u"nobody"_s, u"nobody"_s}) || bytes.contains("nobody"),
        "a window that nobody claims has no name");

    requireNameComesBack(folder, bytes);
}

} // namespace hmatnik::test
