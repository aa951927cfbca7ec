#pragma once

#include "model/AppModel.h"
#include "views/CardRows.h"

#include <QObject>
#include <QStringList>
#include <QtQmlIntegration>

#include <vector>

namespace hmatnik {

/// The library screen: which cards it shows, and the star of each.
class LibraryState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(hmatnik::CardRows *rows READ rows CONSTANT)
    Q_PROPERTY(bool empty READ isEmpty NOTIFY contentsChanged)
    Q_PROPERTY(QString outcome READ outcome NOTIFY contentsChanged)

public:
    explicit LibraryState(AppModel &model, QObject *parent = nullptr);

    CardRows *rows() { return &m_rows; }
    bool isEmpty() const { return m_positions.empty(); }

    /// How many cards are left, in words.
    QString outcome() const;

    /// Marks or unmarks the card's shortcut as a favourite; positions out of range are ignored.
    Q_INVOKABLE void toggleFavorite(int card);

Q_SIGNALS:
    void contentsChanged();
    /// The person asked for other contents; the view goes back to its beginning.
    void restarted();

private:
    void reload();
    void restart();
    CardData card(int index) const;

    AppModel &m_model;
    std::vector<int> m_positions;
    CardRows m_rows;
};

} // namespace hmatnik
