#include "platform/linux/shortcuts/ActionKind.h"

#include <array>

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

SystemShortcut::Kind kindOfAction(const QString &name, SystemShortcut::Kind otherwise)
{
    using Kind = SystemShortcut::Kind;
    struct Word
    {
        const char *word;
        Kind kind;
    };
    // The first that occurs counts.
    static constexpr std::array words{
        Word{"screensho", Kind::screenshots}, // screenshot, screenshooter
        Word{"scrot", Kind::screenshots},
        Word{"flameshot", Kind::screenshots},
        Word{"toggle-recording", Kind::screenshots},
        Word{"screen-recording", Kind::screenshots},
        Word{"screencast", Kind::screenshots},
        Word{"spectacle", Kind::screenshots},
        Word{"webbrowser", Kind::browser},
        Word{"www", Kind::browser},
        Word{"firefox", Kind::browser},
        Word{"chromium", Kind::browser},
        Word{"filemanage", Kind::files}, // filemanager, filemanagement
        Word{"dolphin", Kind::files},
        Word{"nautilus", Kind::files},
        Word{"thunar", Kind::files},
        Word{"pcmanfm", Kind::files},
        Word{"nemo", Kind::files},
        Word{"caja", Kind::files}};
    if (name == "home"_L1)
        return Kind::files;
    for (const Word &word : words) {
        if (name.contains(QLatin1String(word.word), Qt::CaseInsensitive))
            return word.kind;
    }
    return otherwise;
}

} // namespace hmatnik::platform
