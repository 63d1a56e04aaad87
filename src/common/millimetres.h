#pragma once

inline constexpr double kMmPerInch = 25.4;
