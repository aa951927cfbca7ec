#pragma once

#include <cstdio>
#include <cstdlib>

namespace hmatnik::test {

/// Ends the process, which is how a fuzzer learns of a finding, unless the condition holds.
/// @param promise what should have held, for the person who reads it.
inline void require(bool condition, const char *promise)
{
    if (condition)
        return;
    std::fprintf(stderr, "A broken promise: %s\n", promise);
    std::abort();
}

} // namespace hmatnik::test
