#pragma once

#include "model/Shortcut.h"
#include "views/ScreenState.h"

#include <QStringList>

namespace hmatnik {

/// What a person has typed into the editor of own shortcuts. Every editor starts empty.
class EditorState : public hmatnik::ScreenState
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)
    Q_PROPERTY(QString keys READ keys WRITE setKeys NOTIFY keysChanged)
    Q_PROPERTY(QString detail READ detail WRITE setDetail NOTIFY detailChanged)
    Q_PROPERTY(QString app READ app WRITE setApp NOTIFY appChanged)
    Q_PROPERTY(int category READ categoryIndex WRITE setCategoryIndex NOTIFY categoryChanged)
    Q_PROPERTY(QStringList categories READ categories CONSTANT)
    Q_PROPERTY(QString keysPlaceholder READ keysPlaceholder NOTIFY keyStyleChanged)
    Q_PROPERTY(QString spokenKeysPlaceholder READ spokenKeysPlaceholder NOTIFY keyStyleChanged)
    Q_PROPERTY(bool hasInput READ hasInput NOTIFY inputChanged)
    Q_PROPERTY(bool valid READ isValid NOTIFY validChanged)

public:
    explicit EditorState(QObject *parent = nullptr);

    const QString &title() const { return m_title; }
    void setTitle(const QString &title);
    /// The keys as typed, tokens separated by "+".
    const QString &keys() const { return m_keys; }
    void setKeys(const QString &keys);
    /// Optional.
    const QString &detail() const { return m_detail; }
    void setDetail(const QString &detail);
    /// Name of one application, optional.
    const QString &app() const { return m_app; }
    void setApp(const QString &app);
    Shortcut::Category category() const { return m_category; }
    /// The category's place in Shortcut::allCategories.
    int categoryIndex() const { return static_cast<int>(m_category); }
    /// Places out of range are ignored.
    void setCategoryIndex(int index);
    /// Display names of all categories, in order.
    static QStringList categories();

    /// The key tokens that the typed keys stand for.
    QStringList parsedKeys() const { return KeyNames::tokensFromText(m_keys, keyStyle()); }
    /// An example of what to type, with the names that the keys have now.
    QString keysPlaceholder() const;
    /// The same in words, for screen readers.
    QString spokenKeysPlaceholder() const;
    /// Whether anything was typed or chosen, which would be lost.
    bool hasInput() const;
    /// True if there is a title other than white space, and at least one key.
    bool isValid() const;

    /// Adds the shortcut to the model's own ones and stores them. False, and nothing is changed, if
    /// the input is not valid.
    Q_INVOKABLE bool add();

Q_SIGNALS:
    void titleChanged();
    void keysChanged();
    void detailChanged();
    void appChanged();
    void categoryChanged();
    void inputChanged();
    void validChanged();
    void keyStyleChanged();

protected:
    void follow(AppModel &model) override;

private:
    KeyStyle keyStyle() const { return model() ? model()->keyStyle() : KeyStyle::mac; }
    void assign(QString &field, const QString &text, void (EditorState::*changed)());

    QString m_title;
    QString m_keys;
    QString m_detail;
    QString m_app;
    Shortcut::Category m_category = Shortcut::allCategories.front();
};

} // namespace hmatnik
