#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the run, whatever the build type, when a rule does not hold.
inline void require(bool holds, const char *rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", rule);
    std::abort();
}
