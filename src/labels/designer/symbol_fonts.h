#pragma once

#include "labels/layout/label_layout.h"

#include <QStringList>

#include <vector>

/// Fonts of symbols that this machine has, the usual ones first.
QStringList symbolFonts();

/// Whether a text is a symbol: one character of a symbol font, whether this machine has it or not.
bool isSymbol(const TextElement &text);

/// The characters of a font that a layout file can hold: its code page knows no others.
std::vector<QChar> symbolsOf(const QString &family);
