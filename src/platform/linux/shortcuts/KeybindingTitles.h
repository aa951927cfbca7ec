#pragma once

#include <QByteArray>
#include <QHash>
#include <QIODevice>
#include <QString>

namespace hmatnik::platform {

/// The names of actions as the settings program of GNOME and its kin lists them, in the person's
/// language: files of the folder keybindings, each for one schema, translated by the domain of the
/// package that it came with.
class KeybindingTitles
{
public:
    /// @param catalogue of messages, for lists that name none.
    explicit KeybindingTitles(const QByteArray &catalogue);

    /// Takes up the lists of a settings program that is installed ("gnome-control-center"). The
    /// person's locale must have been set.
    void addInstalled(const QString &settingsProgram);
    /// Takes up one list; whatever makes no sense is left out.
    void add(QIODevice &list);
    /// Empty if no list has the action.
    QString title(const QString &schema, const QString &key) const;

private:
    struct Title
    {
        QString text;
        bool isTranslated = false;
    };

    const QByteArray m_catalogue;
    QHash<QString, Title> m_titles;
};

} // namespace hmatnik::platform
