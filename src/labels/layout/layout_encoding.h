#pragma once

#include <QByteArray>

#include <optional>

/// Layout files are in code page 1254. Editors save them in Unicode without a word, and every
/// Turkish letter of them is then another.
enum class LayoutEncoding
{
    codePage,
    utf8,
    utf16
};

/// Told by a byte order mark, by letters that are whole UTF-8 sequences throughout, or by the zero
/// bytes of UTF-16.
LayoutEncoding encodingOf(const QByteArray &file);

/// The same file in code page 1254; nothing when it holds letters that code page lacks.
std::optional<QByteArray> inCodePage(const QByteArray &file);
