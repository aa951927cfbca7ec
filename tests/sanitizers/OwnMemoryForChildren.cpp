// Part of every program that is built with the thread sanitizer. Qt starts processes by a child
// that borrows our memory until it has become the other program (CLONE_VM and CLONE_VFORK). The
// sanitizer sees no second process in that: what the child does it takes for the main thread's
// doing, and from then on it overlooks the main thread's races. So here a child gets a copy.

#include <dlfcn.h>
#include <sched.h>

#include <cstdarg>

using Clone = int (*)(int (*)(void *), void *, int, void *, ...);

/// Takes the place of the C library's function for all libraries too, as the program's own names
/// come first.
extern "C" __attribute__((visibility("default"))) int
clone(int (*function)(void *), void *stack, int flags, void *argument, ...)
{
    std::va_list more;
    va_start(more, argument);
    void *parentThread = va_arg(more, void *);
    void *threadStorage = va_arg(more, void *);
    void *childThread = va_arg(more, void *);
    va_end(more);
    static const auto original = reinterpret_cast<Clone>(::dlsym(RTLD_NEXT, "clone"));
    if (flags & CLONE_VFORK)
        flags &= ~(CLONE_VM | CLONE_VFORK);
    return original(function, stack, flags, argument, parentThread, threadStorage, childThread);
}
