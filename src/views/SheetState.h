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
    Q_PROPERTY(bool hasInput READ hasInput WRITE setHasInput NOTIFY hasInputChanged)

public:
    using QObject::QObject;

    std::optional<AppSheet> sheet() const { return m_sheet; }
    /// Shows a sheet in place of the one that is open, or none.
    void setSheet(std::optional<AppSheet> sheet);

    /// Whether the sheet holds something that would be lost with it; told by the sheet.
    bool hasInput() const { return m_hasInput; }
    void setHasInput(bool hasInput);

    /// The person has asked for a screen, from elsewhere, while a sheet may lie over it. One that
    /// holds nothing gives way; another one stays until the person has finished it.
    void makeWay();
    /// Whether makeWay() was called for the sheet that is open or was last: the screen has the
    /// keyboard after it, not who had it before.
    Q_INVOKABLE bool isScreenAwaited() const { return m_isScreenAwaited; }

    Q_INVOKABLE void openSettings() { setSheet(AppSheet::settings); }
    Q_INVOKABLE void openEditor() { setSheet(AppSheet::add); }
    Q_INVOKABLE void dismiss() { setSheet(std::nullopt); }

Q_SIGNALS:
    void changed();
    void hasInputChanged();

private:
    /// The sheet's raw value; empty if there is none.
    QString sheetText() const { return m_sheet ? rawValue(*m_sheet) : QString(); }

    std::optional<AppSheet> m_sheet;
    bool m_hasInput = false;
    bool m_isScreenAwaited = false;
};

} // namespace hmatnik
