#pragma once

#include "labels/designer/designer_commands.h"

#include <QIcon>

/// A drawn picture of a command for its button, sharp at every size; null for commands that have
/// none.
QIcon iconOf(Command command);
