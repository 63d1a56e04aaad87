#pragma once

#include <QIcon>
#include <QPixmap>

QT_BEGIN_NAMESPACE
class QApplication;
QT_END_NAMESPACE

/// One look on every system: style, palette, type size.
void applyLook(QApplication &app);

/// The program's icon, drawn at every size that is asked of it.
QIcon programIcon();

/// A small picture of bars, for the about box.
QPixmap barcodePicture(QSize size);
