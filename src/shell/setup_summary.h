#pragma once

#include <QString>

struct SetupAnswers;

/// Says in words what a till that is set up like this will write, and where.
QString setupSummary(const SetupAnswers &answers);
