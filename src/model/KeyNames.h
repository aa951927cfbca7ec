#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace hmatnik {

/// Whose names the keys have where they are shown and said. Tokens are the same in either.
enum class KeyStyle { mac, pc };

/// Which keys have names of their own where a press becomes tokens: few, as the notation of the
/// Mac's library has it, or all.
enum class KeyNaming { literal, all };

/// What is drawn and said for key tokens, and which of them a press gives; nothing else decides it.
namespace KeyNames {

/// Whether this is F1 to F35, as many as X11 has names for, in whatever case.
bool isFunctionKey(const QString &name);

/// What stands on the token's key cap. On a Mac that is the token, or the glyph of a key that the
/// quiz takes as a control character; on a PC "⌃" is "Ctrl" and "⌘" is "Super", as Linux desktops
/// call the key with the logo. What is no known token stays.
QString caption(const QString &token, KeyStyle style);

/// The captions of a combination in order.
QStringList captions(const QStringList &tokens, KeyStyle style);

/// How a token is said aloud: screen readers skip or mispronounce glyphs. "⌘" is "Command" on a
/// Mac, "←" is "Šipka vlevo", "C" stays "C".
QString spoken(const QString &token, KeyStyle style);

/// The tokens of a combination in words and in order, separated by spaces.
QString spoken(const QStringList &tokens, KeyStyle style);

/// The tokens of a text that a person typed, pieces separated by "+". On a Mac the pieces are the
/// tokens. On a PC the names of keys stand for their tokens in whatever case, with or without
/// diacritics, letters become capitals, and a plus at the end that is alone or follows another is
/// the key: "ctrl+s" gives "⌃" and "S", "Ctrl++" gives "⌃" and "+". Order and repetitions stay in
/// either.
QStringList tokensFromText(const QString &text, KeyStyle style);

/// The tokens in the order in which shortcuts have them: "Fn", "⌃", "⌥", "⇧", "⌘", then all others
/// as they stand.
QStringList inDisplayOrder(QStringList tokens);

/// Whether some press on some layout gives these tokens, modifiers first. None does for modifiers
/// alone, for Fn, for several strokes, and for keys that belong to the desktop, such as Print; with
/// KeyNaming::literal none does for Escape, Return, the keys around Home, function keys and the
/// minus of the notation either.
bool canBePressed(const QStringList &tokens, KeyNaming naming = KeyNaming::all);

/// Whether both name the same keys, in whatever order and however often. Menus, settings and people
/// write some keys in other ways than a press gives them: "⌫" is the key of "Delete", "⎋" that of
/// "Esc", the hyphen that of "−", and letters have no case.
bool areSameKeys(const QStringList &one, const QStringList &other);

/// The stored form of a style: "mac" or "pc".
QString rawValue(KeyStyle style);
/// The style that a stored text names exactly; none otherwise.
std::optional<KeyStyle> styleFromRawValue(const QString &rawValue);

} // namespace KeyNames

} // namespace hmatnik
