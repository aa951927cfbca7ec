#pragma once

#include <QByteArray>

namespace hmatnik::test {

// Each takes bytes that come from outside the program, reads them as the program does, and requires
// (Require.h) what must hold whatever they are.

/// The bytes are the file of the preferences.
void fuzzPreferences(const QByteArray &bytes);
/// The bytes are the person's own shortcuts, as the preferences keep them.
void fuzzShortcutList(const QByteArray &bytes);
/// The bytes are the version manifest, as the server sent it.
void fuzzVersionManifest(const QByteArray &bytes);
/// Each line is a version.
void fuzzVersions(const QByteArray &bytes);
/// The lines are what another program says of a menu item: its key binding and its title.
void fuzzKeyBinding(const QByteArray &bytes);
/// The bytes are the desktop entry of an application.
void fuzzDesktopEntry(const QByteArray &bytes);

} // namespace hmatnik::test
