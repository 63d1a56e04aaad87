#pragma once

#include <QString>

#include <array>

/// The start-up index table `sira`: 88 decimal numbers in text. The first 84 are a permutation of
/// 0 to 83, the last four are 0, 1, 2, 3.
std::array<QString, 88> startTable();
