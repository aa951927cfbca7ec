#pragma once

#include "Require.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace hmatnik::test {

/// A folder for one target's files, which goes with the process.
class ScratchFolder
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    void write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        require(
            file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(),
            "the folder for scratch files can be written");
    }
    QByteArray read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// The names of everything in it, hidden files included, in order.
    QStringList names() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    void clear() const
    {
        const QStringList all = names();
        for (const QString &name : all)
            QFile::remove(path(name));
    }

private:
    QTemporaryDir m_folder;
};

} // namespace hmatnik::test
