#pragma once

#include <QtGlobal>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
