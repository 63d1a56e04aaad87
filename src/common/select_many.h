#pragma once

#include "common/record_set.h"

#include <functional>

class CompanyDatabase;

/// Runs `count` selects on the company's database that do not depend on one another, many in one
/// round trip: on a shop's network the way to the server costs more than the answer. From what
/// happens nobody can tell: `take(i, answer)` is called in the order of the statements, and an
/// error (HostError) comes after the answers before it. `statement(i)`: i from 0 to count − 1.
/// False when `take` returned false, to stop.
bool selectMany(CompanyDatabase &database, int count,
                const std::function<QString(int i)> &statement,
                const std::function<bool(int i, RecordSet answer)> &take);
