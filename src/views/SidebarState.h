#pragma once

#include "model/AppModel.h"

#include <QObject>
#include <QPointer>
#include <QVariantList>
#include <QtQmlIntegration>

#include <vector>

namespace hmatnik {

/// The sidebar's sections and rows, which row is selected, and the page title that goes with it.
class SidebarState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(QVariantList sections READ sections CONSTANT)
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectionChanged)
    Q_PROPERTY(int walkedRow READ walkedRow NOTIFY walkedRowChanged)
    Q_PROPERTY(int rowCount READ rowCount CONSTANT)
    Q_PROPERTY(QString pageTitle READ pageTitle NOTIFY selectionChanged)
    Q_PROPERTY(Screen screen READ screen NOTIFY screenChanged)

public:
    /// The screens that destinations lead to.
    enum class Screen { Library, Keyboard, Sticker, FirstAid, Daily, Practice };
    Q_ENUM(Screen)

    explicit SidebarState(AppModel &model, QObject *parent = nullptr);

    /// Sections in order; each a map of "title" and "rows", a row a map of "title", "symbol" and
    /// "row", its number counted through all sections from 0.
    QVariantList sections() const;
    int rowCount() const;
    /// Number of the selected row.
    int selectedRow() const;
    /// Makes the row's destination the selected one; numbers out of range are ignored.
    Q_INVOKABLE void select(int row);

    /// Number of the row that the keyboard is on; the selected one but for a row that walk() left
    /// closed.
    int walkedRow() const { return m_walkedRow; }
    /// Takes the keyboard to another row, at most to the first or the last, and selects it; not if
    /// its screen takes the keyboard for itself, so that the rows behind it can be reached.
    /// @param step how many rows down, negative for up
    Q_INVOKABLE void walk(int step);
    /// Selects the row that walk() left closed.
    Q_INVOKABLE void openWalkedRow() { select(m_walkedRow); }

    QString pageTitle() const { return pageTitle(m_model.selection()); }
    Screen screen() const { return screen(m_model.selection()); }

    /// Title over the detail area.
    static QString pageTitle(const SidebarSelection &selection);
    /// Screen under the top bar.
    static Screen screen(const SidebarSelection &selection);

Q_SIGNALS:
    void selectionChanged();
    void screenChanged();
    void walkedRowChanged();

private:
    void selectionMoved();

    void setWalkedRow(int row);

    AppModel &m_model;
    Screen m_screen;
    int m_walkedRow;
};

} // namespace hmatnik
