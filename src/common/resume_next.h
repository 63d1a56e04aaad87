#pragma once

#include "common/host_error.h"

/// Runs one step and goes on with the next when it fails on a database: the ledger writes, the
/// start-up and the settings are worked this way on purpose, step by step. Returns whether the step
/// went through.
template <typename Step>
bool resumeNext(Step &&step)
{
    try {
        step();
        return true;
    } catch (const HostError &) {
        return false;
    }
}
