#pragma once

#include <QIcon>
#include <QPixmap>

QT_BEGIN_NAMESPACE
class QApplication;
class QWidget;
QT_END_NAMESPACE

/// One look on every system: style, palette, type size.
void applyLook(QApplication &app);

/// The program's icon, drawn at every size that is asked of it.
QIcon programIcon();

/// A small picture of bars, for the about box.
QPixmap barcodePicture(QSize size);

/// Shrinks a form that is about to be shown to what its screen has room for: at 150 % a small
/// screen has less than some would like, and their buttons must stay on it.
void fitToScreen(QWidget &form);
