#pragma once

#include "views/SymbolTable.h"

#include <QObject>
#include <QtQmlIntegration>

namespace hmatnik {

/// The symbol table as QML sees it.
class Symbols : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    Q_INVOKABLE static QString glyph(const QString &name) { return SymbolTable::glyph(name); }
    Q_INVOKABLE static bool isTextGlyph(const QString &name)
    {
        return SymbolTable::isTextGlyph(name);
    }
};

} // namespace hmatnik
