#pragma once

#include "common/printers.h"

#include <QPageLayout>

/// Size and orientation of the sheet a document asks for, without margins. The Windows paper number
/// counts first; an own size (256) or a number nobody knows takes the paper's millimetres, and A4
/// where there are none. Own sizes lie as the designer shows them; in landscape the long side lies
/// across.
QPageLayout pageLayout(const PrinterSetup &setup);
