#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>

inline void Require(bool ACondition, const char *AWhat)
{
    if (ACondition)
        return;
    std::fprintf(stderr, "Not kept: %s\n", AWhat);
    std::abort();
}
