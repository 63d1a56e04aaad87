#pragma once

#include "common/settings.h"

#include <QList>

class Program;

/// What the till reads of the settings when it opens: the tables kdv, ses, yazici, stok, liste and
/// per.
Settings oku(const Program &program);

/// Column widths of the sale lists in pixels, as they were saved; empty when there are none that
/// fit.
QList<int> olcuyukle(Program &program);

/// Saves the column widths; returns false when the settings database refused.
bool olcukaydet(Program &program, const QList<int> &widths);
