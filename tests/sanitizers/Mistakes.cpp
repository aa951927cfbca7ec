// Makes the mistake that it is asked for, for the tests that see whether the sanitizers notice:
// a sanitizer that looks away would make every other test pass. Before that it starts a process, as
// our program does, because that once made one of them look away.

#include <QCoreApplication>
#include <QProcess>

#include <atomic>
#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>
#include <thread>

namespace {

volatile int counted = 0;
void *volatile held = nullptr;

void raceOfThreads()
{
    // What orders them in time must not be seen by the sanitizer as order, hence "relaxed".
    std::atomic<bool> begun = false;
    std::thread other([&begun] {
        counted = counted + 1;
        begun.store(true, std::memory_order_relaxed);
    });
    while (!begun.load(std::memory_order_relaxed))
        std::this_thread::yield();
    counted = counted + 1;
    other.join();
}

void useAfterFree()
{
    auto number = std::make_unique<int>(1);
    volatile int *kept = number.get();
    number.reset();
    counted = *kept;
}

void overflow()
{
    counted = INT_MAX;
    counted = counted + 1;
}

void leak()
{
    held = ::operator new(1000);
    held = nullptr;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const char *wanted = argc > 1 ? argv[1] : "";
    QProcess process;
    process.start(QStringLiteral("true"), QStringList());
    if (!process.waitForFinished()) {
        std::fputs("the process did not end\n", stderr);
        return 2;
    }
    if (std::strcmp(wanted, "race") == 0)
        raceOfThreads();
    else if (std::strcmp(wanted, "use-after-free") == 0)
        useAfterFree();
    else if (std::strcmp(wanted, "overflow") == 0)
        overflow();
    else if (std::strcmp(wanted, "leak") == 0)
        leak();
    else
        return 2;
    return 0;
}
