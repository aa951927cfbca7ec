#include "views/SpareMemory.h"

#include <QQmlEngine>

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

namespace hmatnik {

void giveBackMemory(QQmlEngine &engine)
{
    engine.collectGarbage();
#ifdef __GLIBC__
    // Otherwise only what is free at the end of the heap goes back.
    ::malloc_trim(0);
#endif
}

} // namespace hmatnik
