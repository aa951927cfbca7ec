#pragma once

#include <QList>
#include <QObject>
#include <QtQmlIntegration>

namespace hmatnik {

/// How the top bar's parts share its width. Where they don't all find room, the name of the
/// application in front gives way first, then the search field, then the text of the import button.
/// The page title stays whole and is never smaller than written; only what larger texts of the
/// desktop have added to it is taken back, at the very last.
class TopBarLayout : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The parts, in the order in which they give way.
    enum Part { Overlay, Search, Importer, Title };
    Q_ENUM(Part)

    /// Widths of the parts.
    /// @param room what they may take together
    /// @param natural as wide as each of them wants to be
    /// @param least what each of them keeps in any case; as many as the natural ones
    Q_INVOKABLE static QList<double>
    widths(double room, const QList<double> &natural, const QList<double> &least);
};

} // namespace hmatnik
