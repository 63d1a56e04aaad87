#pragma once

#include "labels/layout/label_layout.h"

#include <QByteArray>

/// The form in which elements lie on the clipboard, under this name beside others.
inline constexpr QStringView kClipboardFormat = u"application/x-tezgah-etiket";

/// Elements as bytes and back, in the words of a layout file. Bytes of anybody else give none.
QByteArray clipboardBytes(const LabelLayout &elements);
LabelLayout elementsOf(const QByteArray &bytes);

/// A text of another program as an element of its own; none for a blank one.
LabelLayout elementOfText(const QString &text);
