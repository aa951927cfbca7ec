#include "views/EditorState.h"

#include "model/KeyNames.h"

#include <QUuid>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

QStringList exampleKeys()
{
    return {u"⌥"_s, u"⌘"_s, u"K"_s};
}

} // namespace

EditorState::EditorState(QObject *parent)
    : ScreenState(parent)
{
}

void EditorState::setTitle(const QString &title)
{
    assign(m_title, title, &EditorState::titleChanged);
}

void EditorState::setKeys(const QString &keys)
{
    assign(m_keys, keys, &EditorState::keysChanged);
}

void EditorState::setDetail(const QString &detail)
{
    assign(m_detail, detail, &EditorState::detailChanged);
}

void EditorState::setApp(const QString &app)
{
    assign(m_app, app, &EditorState::appChanged);
}

void EditorState::setCategoryIndex(int index)
{
    if (index < 0 || index >= static_cast<int>(Shortcut::allCategories.size()) ||
        index == categoryIndex())
        return;
    const bool hadInput = hasInput();
    m_category = Shortcut::allCategories.at(static_cast<size_t>(index));
    Q_EMIT categoryChanged();
    if (hasInput() != hadInput)
        Q_EMIT inputChanged();
}

QStringList EditorState::categories()
{
    QStringList names;
    for (const Shortcut::Category category : Shortcut::allCategories)
        names.append(Shortcut::rawValue(category));
    return names;
}

QString EditorState::keysPlaceholder() const
{
    return u"např. "_s + KeyNames::captions(exampleKeys(), keyStyle()).join(u" + "_s);
}

QString EditorState::spokenKeysPlaceholder() const
{
    QStringList words;
    for (const QString &token : exampleKeys())
        words.append(KeyNames::spoken(token, keyStyle()));
    return u"např. "_s + words.join(u" plus "_s);
}

void EditorState::follow(AppModel &model)
{
    connect(&model, &AppModel::keyStyleChanged, this, &EditorState::keyStyleChanged);
    Q_EMIT keyStyleChanged();
}

bool EditorState::hasInput() const
{
    const bool isBlank =
        m_title.isEmpty() && m_keys.isEmpty() && m_detail.isEmpty() && m_app.isEmpty();
    return !isBlank || m_category != Shortcut::allCategories.front();
}

bool EditorState::isValid() const
{
    return !m_title.trimmed().isEmpty() && !parsedKeys().isEmpty();
}

bool EditorState::add()
{
    if (!model() || !isValid())
        return false;
    const Shortcut shortcut{
        u"custom-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper(),
        m_title,
        parsedKeys(),
        m_category,
        m_app.isEmpty() ? QStringList() : QStringList(m_app),
        m_detail.isEmpty() ? u"Vlastní klávesová zkratka."_s : m_detail};
    model()->refresh();
    model()->setCustomShortcuts(model()->customShortcuts() + QList<Shortcut>{shortcut});
    model()->saveCustomShortcuts();
    return true;
}

void EditorState::assign(QString &field, const QString &text, void (EditorState::*changed)())
{
    if (field == text)
        return;
    const bool wasValid = isValid();
    const bool hadInput = hasInput();
    field = text;
    Q_EMIT(this->*changed)();
    if (isValid() != wasValid)
        Q_EMIT validChanged();
    if (hasInput() != hadInput)
        Q_EMIT inputChanged();
}

} // namespace hmatnik
