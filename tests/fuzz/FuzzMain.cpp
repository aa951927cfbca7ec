// What libFuzzer calls; built once for each target, which HMATNIK_FUZZ_TARGET names.

#include "FuzzTargets.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // A copy of its own, so that a read past its end is seen.
    hmatnik::test::HMATNIK_FUZZ_TARGET(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    return 0;
}
