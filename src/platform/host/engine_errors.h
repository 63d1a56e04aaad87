#pragma once

#include "common/host_error.h"

/// A HostError whose text says in Turkish what happened, followed by the engine's own words.
HostError engineError(int number, const QString &engineText, const QString &statement = {},
                      HostError::Cause cause = HostError::Cause::unknown);
