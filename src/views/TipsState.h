#pragma once

#include "model/AppModel.h"
#include "views/CardData.h"
#include "views/TipsTexts.h"

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQmlIntegration>

namespace hmatnik {

/// The few shortcuts that suit the application in front, as the floating panel and the menu-bar
/// window show them.
class TipsState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the panel")
    Q_PROPERTY(QString activeApp READ activeApp NOTIFY changed)
    Q_PROPERTY(QString header READ header NOTIFY changed)
    Q_PROPERTY(QString overlayCommand READ overlayCommand NOTIFY changed)
    Q_PROPERTY(QString libraryCommand READ libraryCommand CONSTANT)
    Q_PROPERTY(QString quitCommand READ quitCommand CONSTANT)
    Q_PROPERTY(QString hotKeyHint READ hotKeyHint NOTIFY changed)
    Q_PROPERTY(QString spokenHotKeyHint READ spokenHotKeyHint NOTIFY changed)
    Q_PROPERTY(QVariantList tips READ tips NOTIFY changed)

public:
    explicit TipsState(AppModel &model, QObject *parent = nullptr);

    /// Name of the application in front.
    QString activeApp() const { return m_model.activeApp(); }
    /// Whom the tips are for.
    QString header() const { return TipsTexts::header(activeApp()); }
    QString overlayCommand() const { return TipsTexts::showOverlay(activeApp()); }
    static QString libraryCommand() { return TipsTexts::openLibrary(); }
    static QString quitCommand() { return TipsTexts::quit(); }
    /// Tells of the keys that bring the library to the front.
    QString hotKeyHint() const;
    /// The same in words, for screen readers.
    QString spokenHotKeyHint() const;
    /// At most four CardData, most used first.
    QVariantList tips() const;

Q_SIGNALS:
    void changed();

private:
    AppModel &m_model;
};

} // namespace hmatnik
