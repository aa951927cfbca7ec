#pragma once

#include "views/AppSheet.h"

#include <QObject>
#include <QtQmlIntegration>

#include <optional>

namespace hmatnik {

/// Which sheet the main window shows, if any; never more than one.
class SheetState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(QString sheet READ sheetText NOTIFY changed)

public:
    using QObject::QObject;

    std::optional<AppSheet> sheet() const { return m_sheet; }
    /// Shows a sheet in place of the one that is open, or none.
    void setSheet(std::optional<AppSheet> sheet);

    Q_INVOKABLE void openSettings() { setSheet(AppSheet::settings); }
    Q_INVOKABLE void openEditor() { setSheet(AppSheet::add); }
    Q_INVOKABLE void dismiss() { setSheet(std::nullopt); }

Q_SIGNALS:
    void changed();

private:
    /// The sheet's raw value; empty if there is none.
    QString sheetText() const { return m_sheet ? rawValue(*m_sheet) : QString(); }

    std::optional<AppSheet> m_sheet;
};

} // namespace hmatnik
