#include "FuzzTargets.h"
#include "Require.h"
#include "ScratchFolder.h"
#include "platform/linux/PropertyListPreferences.h"
#include "platform/linux/PropertyListText.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

using platform::PropertyList;
using platform::PropertyListPreferences;

constexpr int maximumDepth = 64;
constexpr qsizetype maximumKeys = 8;

const auto fileName = u"preferences.plist"_s;
const auto lockName = u".preferences.plist.lock"_s;

/// Whether preferences may hold the value. What is no value of ours (a date) reads as an invalid
/// one within a list or map.
bool isReadable(const QVariant &value, int depth) // NOLINT(misc-no-recursion): depth is bounded
{
    if (depth > maximumDepth)
        return false;
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::QString:
    case QMetaType::QByteArray:
        return true;
    case QMetaType::QVariantList: {
        const QVariantList list = value.toList();
        return std::all_of(list.begin(), list.end(), [&](const auto &item) {
            return isReadable(item, depth + 1);
        });
    }
    case QMetaType::QVariantMap: {
        const QVariantMap map = value.toMap();
        return std::all_of(
            map.begin(), map.end(), [&](const auto &item) { return isReadable(item, depth + 1); });
    }
    default:
        return false;
    }
}

/// Equality that also holds for what is no number.
bool isSame(const QVariant &a, const QVariant &b) // NOLINT(misc-no-recursion): depth is bounded
{
    if (a.typeId() != b.typeId())
        return false;
    switch (a.typeId()) {
    case QMetaType::Double:
        return a.toDouble() == b.toDouble() ||
               (std::isnan(a.toDouble()) && std::isnan(b.toDouble()));
    case QMetaType::QVariantList: {
        const QVariantList first = a.toList();
        const QVariantList second = b.toList();
        return std::equal(first.begin(), first.end(), second.begin(), second.end(), isSame);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap first = a.toMap();
        const QVariantMap second = b.toMap();
        return first.keys() == second.keys() &&
               std::equal(first.begin(), first.end(), second.begin(), second.end(), isSame);
    }
    default:
        return a == b;
    }
}

/// The keys that the program uses and some that the file seems to have.
QStringList keysToLookAt(const QByteArray &bytes)
{
    static const QRegularExpression keyElement(u"<key>([^<&]*)</key>"_s);
    QStringList keys{u"favorites"_s, u"smartSuggestions"_s, u"usageCounts"_s, u"customShortcuts"_s};
    auto match = keyElement.globalMatch(QString::fromUtf8(bytes));
    for (qsizetype i = 0; i < maximumKeys && match.hasNext(); ++i)
        keys.append(match.next().captured(1));
    return keys;
}

QVariantList valuesOf(const platform::Preferences &preferences, const QStringList &keys)
{
    QVariantList values;
    for (const QString &key : keys)
        values.append(preferences.value(key));
    return values;
}

/// Nothing is lost when the program starts: what it can read stays as it is, the rest is put aside.
void requireFileIsKept(const ScratchFolder &folder, const QByteArray &bytes, bool isPropertyList)
{
    QStringList names = folder.names();
    names.removeAll(lockName);
    require(names.size() == 1, "starting leaves one file");
    require(folder.read(names.front()) == bytes, "starting changes no byte");
    require(
        isPropertyList ? names.front() == fileName
                       : names.front().startsWith(fileName + u".damaged-"_s),
        "only a damaged file gets another name");
}

void requireTextsComeBack(const QByteArray &bytes)
{
    const QString text(
        reinterpret_cast<const QChar *>(bytes.constData()),
        bytes.size() / qsizetype(sizeof(QChar)));
    require(
        platform::unescapedFromXml(platform::escapedForXml(text)) == text,
        "an escaped text reads as it was");
    PropertyList list;
    const QVariantMap values{
        {u"text"_s, text}, {u"bytes"_s, bytes}, {text, QVariantList{text, bytes}}};
    require(list.setValue(text, values), "every text and all bytes can be stored");
    const auto read = PropertyList::fromXml(list.toXml());
    require(read.has_value(), "what we write we can read");
    require(read->value(text) == QVariant(values), "texts, bytes and keys come back as they were");
}

} // namespace

void fuzzPreferences(const QByteArray &bytes)
{
    static const ScratchFolder folder;
    folder.clear();
    folder.write(fileName, bytes);
    const auto list = PropertyList::fromXml(bytes);
    const QStringList keys = keysToLookAt(bytes);
    const auto added = u"hmatnik-added"_s;

    QVariantList values;
    {
        PropertyListPreferences preferences(folder.path(fileName));
        requireFileIsKept(folder, bytes, list.has_value());
        values = valuesOf(preferences, keys);
        for (qsizetype i = 0; i < keys.size(); ++i) {
            require(isReadable(values[i], 2), "values have the types that preferences hold");
            require(list || !values[i].isValid(), "a damaged file gives no values");
            if (list)
                require(isSame(list->value(keys[i]), values[i]), "the list's values are given");
        }
        require(preferences.setValue(added, true), "a change can be stored");
    }

    // The next run finds the change, and all that was there before.
    PropertyListPreferences next(folder.path(fileName));
    require(next.value(added) == QVariant(true), "a change is there at the next start");
    const QVariantList nextValues = valuesOf(next, keys);
    for (qsizetype i = 0; i < keys.size(); ++i) {
        require(
            keys[i] == added || isSame(values[i], nextValues[i]), "a change leaves the rest alone");
    }
    require(next.removeValue(added) && !next.value(added).isValid(), "a value can be removed");
    require(PropertyList::fromXml(folder.read(fileName)).has_value(), "what is stored can be read");

    requireTextsComeBack(bytes);
}

} // namespace hmatnik::test
