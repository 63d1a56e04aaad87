#pragma once

#include <QByteArray>

/// Bytes to append to a finished PDF file so that viewers print it in its own size, without fitting
/// it to the paper: an incremental update that adds the viewer preference to the catalog. Returns
/// nothing when the file's end is not understood. `pdf`: the whole file.
QByteArray noPrintScaling(const QByteArray &pdf);
