#include "platform/linux/PropertyListPreferences.h"

#include <QStandardPaths>

#include <utility>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

/// Far above what a person's shortcuts take (a hundred thousand of them: some 40 MB).
constexpr qint64 maximumFileSize = 256LL * 1024 * 1024;

} // namespace

PropertyListPreferences::PropertyListPreferences(const QString &path)
    : m_file(path)
{
    m_file.removeLeftovers();
    m_mayReplace = takeFile();
}

QString PropertyListPreferences::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/hmatnik/cz.hmatnik.Hmatnik.plist"_s;
}

QVariant PropertyListPreferences::value(const QString &key) const
{
    return m_list.value(key);
}

bool PropertyListPreferences::setValue(const QString &key, const QVariant &value)
{
    if (!m_list.setValue(key, value))
        return false;
    m_removed.remove(key);
    return store();
}

bool PropertyListPreferences::removeValue(const QString &key)
{
    if (m_mayReplace && !m_isDirty && !m_list.contains(key))
        return true;
    m_list.remove(key);
    if (!m_mayReplace)
        m_removed.insert(key);
    return store();
}

bool PropertyListPreferences::store()
{
    m_isDirty = true;
    if (!m_mayReplace)
        m_mayReplace = takeFile();
    if (!m_mayReplace)
        return false;
    const QByteArray xml = m_list.toXml();
    // A larger file would count as foreign at the next start.
    if (xml.isEmpty() || xml.size() > maximumFileSize || m_file.write(xml) != 0)
        return false;
    m_isDirty = false;
    return true;
}

/// Reads what stands on disk, below the changes made meanwhile; moves it aside if it is none of
/// ours. False if it is still in the way.
bool PropertyListPreferences::takeFile()
{
    const DurableFile::Contents contents = m_file.read(maximumFileSize);
    switch (contents.status) {
    case DurableFile::Status::Missing:
        return true;
    case DurableFile::Status::Unavailable:
        return false;
    case DurableFile::Status::Unreadable:
        return m_file.moveAside();
    case DurableFile::Status::Read:
        break;
    }
    auto stored = PropertyList::fromXml(contents.bytes);
    if (!stored)
        return m_file.moveAside();
    for (const QString &key : std::as_const(m_removed))
        stored->remove(key);
    stored->merge(m_list);
    m_list = std::move(*stored);
    return true;
}

} // namespace hmatnik::platform
