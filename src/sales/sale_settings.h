#pragma once

#include "common/local_database.h"
#include "common/settings.h"

#include <QList>

/// What the till reads of the settings when it opens: the tables kdv, ses, yazici, stok, liste and
/// per.
Settings oku(const LocalFiles &files);

/// Column widths of the sale lists in pixels, as they were saved; empty when there are none that
/// fit.
QList<int> olcuyukle(const LocalFiles &files);

/// Saves the column widths; returns false when the settings database refused.
bool olcukaydet(const LocalFiles &files, const QList<int> &widths);
