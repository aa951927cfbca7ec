#include "platform/linux/shortcuts/KeybindingTitles.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QXmlStreamReader>

#include <libintl.h>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestList = qint64{1024} * 1024; // bytes
constexpr int mostLists = 200;

QString translated(const QString &text, const QString &context, const QByteArray &domain)
{
    if (text.isEmpty())
        return {};
    if (!context.isEmpty()) {
        // How message catalogues tell two meanings of a word apart.
        const QByteArray original = context.toUtf8() + '\x04' + text.toUtf8();
        const char *answer = dgettext(domain.constData(), original.constData());
        return answer == original.constData() ? text : QString::fromUtf8(answer);
    }
    return QString::fromUtf8(dgettext(domain.constData(), text.toUtf8().constData()));
}

} // namespace

KeybindingTitles::KeybindingTitles(const QByteArray &catalogue)
    : m_catalogue(catalogue)
{
}

void KeybindingTitles::addInstalled(const QString &settingsProgram)
{
    int lists = 0;
    const QStringList folders = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, settingsProgram + u"/keybindings"_s,
        QStandardPaths::LocateDirectory);
    for (const QString &folder : folders) {
        const QStringList names = QDir(folder).entryList({u"*.xml"_s}, QDir::Files, QDir::Name);
        for (const QString &name : names) {
            QFile file(folder + u'/' + name);
            if (++lists <= mostLists && file.size() <= largestList &&
                file.open(QIODevice::ReadOnly))
                add(file);
        }
    }
}

void KeybindingTitles::add(QIODevice &list)
{
    QXmlStreamReader xml(&list);
    QString schema;
    QByteArray domain;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        const auto attribute = [&](QLatin1String name) {
            return attributes.value(name).toString();
        };
        if (xml.name() == "KeyListEntries"_L1) {
            schema = attribute("schema"_L1);
            domain = attribute("package"_L1).toUtf8();
            if (domain.isEmpty())
                domain = m_catalogue;
            bind_textdomain_codeset(domain.constData(), "UTF-8");
        } else if (xml.name() == "KeyListEntry"_L1 && !schema.isEmpty()) {
            const QString original = attribute("description"_L1);
            const QString title = translated(original, attribute("msgctxt"_L1), domain);
            // A schema beside a key is that of a setting on which the entry depends.
            const bool isElsewhere =
                attributes.hasAttribute("schema"_L1) && !attributes.hasAttribute("key"_L1);
            const QString key =
                (isElsewhere ? attribute("schema"_L1) : schema) + u'/' + attribute("name"_L1);
            if (title.isEmpty())
                continue;
            // Several window managers can be installed, and not all of them with their catalogue.
            const Title known = m_titles.value(key);
            if (known.text.isEmpty() || (!known.isTranslated && title != original))
                m_titles.insert(key, {title, title != original});
        }
    }
}

QString KeybindingTitles::title(const QString &schema, const QString &key) const
{
    return m_titles.value(schema + u'/' + key).text;
}

} // namespace hmatnik::platform
