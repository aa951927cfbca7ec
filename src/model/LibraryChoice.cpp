#include "model/LibraryChoice.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

QString rawValue(LibraryChoice choice)
{
    return choice == LibraryChoice::desktop ? u"desktop"_s : u"mac"_s;
}

std::optional<LibraryChoice> libraryChoiceFromRawValue(const QString &rawValue)
{
    for (const LibraryChoice choice : {LibraryChoice::mac, LibraryChoice::desktop}) {
        if (rawValue == hmatnik::rawValue(choice))
            return choice;
    }
    return std::nullopt;
}

} // namespace hmatnik
