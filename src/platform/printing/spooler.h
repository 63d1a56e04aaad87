#pragma once

#include "common/printers.h"

#include <QList>

/// A document for one of the system's printers. Throws PrintError.
std::unique_ptr<PrintDocument> openSpooled(const QString &printer, const PrinterSetup &setup);

/// The resolution (dots per inch) a printer is set to for a quality: the one nearest to a number of
/// dots per inch; the coarsest for −1 and −2, its own choice for −3 and 0, the finest for −4.
/// `choices` are what it can do; without any, the wish or else `own`.
int chooseResolution(int quality, const QList<int> &choices, int own);
