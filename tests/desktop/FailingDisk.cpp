// Loaded into the program before the C library (LD_PRELOAD), this makes the writing of its
// preferences fail the way a disk fails, at the step and with the error that a test asks for.
// HMATNIK_FAILING_DISK names the file through which the test asks, see Plan; disks.py writes it.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

enum Step : std::int32_t { None, Make, Write, HalfAWrite, Sync, Rename, SyncFolder };

/// Shared with the test, which fills all but the last number.
struct Plan
{
    std::int32_t step;
    /// How many of these steps go well before the first that fails, and how many fail then.
    std::int32_t well;
    std::int32_t failing;
    std::int32_t error;
    /// How many have failed so far.
    std::int32_t failed;
};

volatile Plan *plan()
{
    static volatile Plan *shared = [] {
        const char *path = std::getenv("HMATNIK_FAILING_DISK");
        const int file = path ? ::open(path, O_RDWR | O_CLOEXEC) : -1;
        void *memory =
            file < 0 ? MAP_FAILED
                     : ::mmap(nullptr, sizeof(Plan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        if (memory == MAP_FAILED)
            std::abort();
        return static_cast<volatile Plan *>(memory);
    }();
    return shared;
}

/// Whether this is the step that shall fail now; errno is set then.
bool fails(Step step)
{
    volatile Plan *now = plan();
    if (now->step != step)
        return false;
    if (now->well > 0) {
        now->well = now->well - 1;
        return false;
    }
    if (now->failing == 0)
        return false;
    now->failing = now->failing - 1;
    now->failed = now->failed + 1;
    errno = now->error;
    return true;
}

/// The new file while it has no name of its own yet.
int newFile = -1;

template <typename Function>
Function *next(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

bool isPreferences(const char *path)
{
    return std::strstr(path, "cz.hmatnik.Hmatnik.plist") != nullptr;
}

int make(const char *name, char *path, int flags)
{
    if (isPreferences(path) && fails(Make))
        return -1;
    const int file = next<int(char *, int)>(name)(path, flags);
    if (isPreferences(path))
        newFile = file;
    return file;
}

} // namespace

extern "C" int mkostemp(char *path, int flags)
{
    return make("mkostemp", path, flags);
}

extern "C" int mkostemp64(char *path, int flags)
{
    return make("mkostemp64", path, flags);
}

extern "C" ssize_t write(int file, const void *bytes, size_t count)
{
    static auto *const real = next<ssize_t(int, const void *, size_t)>("write");
    if (file != newFile)
        return real(file, bytes, count);
    if (fails(Write))
        return -1;
    if (fails(HalfAWrite)) {
        // The rest finds no room.
        plan()->step = Write;
        return real(file, bytes, count / 2);
    }
    return real(file, bytes, count);
}

extern "C" int fsync(int file)
{
    static auto *const real = next<int(int)>("fsync");
    struct stat status = {};
    const bool isFolder = ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
    if ((isFolder && fails(SyncFolder)) || (file == newFile && fails(Sync)))
        return -1;
    return real(file);
}

extern "C" int rename(const char *from, const char *to)
{
    static auto *const real = next<int(const char *, const char *)>("rename");
    if (isPreferences(to)) {
        newFile = -1;
        if (fails(Rename))
            return -1;
    }
    return real(from, to);
}
