#pragma once

/// How a line for the cashier is meant; the bar's colour goes by it.
enum class Notice
{
    done,    ///< as wanted
    warning, ///< done, but something has to be looked after
    fault    ///< not done
};
