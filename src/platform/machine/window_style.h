#pragma once

#include "common/window_style.h"

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// Style of a top-level window: the window's style words on Windows, window flags elsewhere.
/// The window must outlive the result.
std::unique_ptr<WindowStyle> windowStyleOf(QWidget &window);
