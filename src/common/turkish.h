#pragma once

#include <QByteArray>
#include <QString>

/// Turkish letters, independent of the machine's locale and of ICU.
namespace turkish {

/// Upper and lower case with the Turkish i: i ↔ İ, ı ↔ I.
QString upper(QStringView text);
QString lower(QStringView text);
char32_t upper(char32_t c);
char32_t lower(char32_t c);

/// Whether the host would take two codes for the same: upper and lower case and blanks at the end
/// do not count.
bool sameCode(QStringView left, QStringView right);

/// Reads a yes or no of a file: True, as this program writes it, Doğru, or a number other than 0
/// (other programs leave −1), in any case and with blanks around it.
bool truth(QStringView text);
QString truthText(bool value);

/// Code page 1254 (Windows Turkish), the encoding of every key file and layout file. Characters it
/// lacks become '?'. Table: the published mapping of Windows code page 1254; its undefined bytes
/// map to the C1 control of the same number, so that every byte survives a round trip.
QByteArray toCodePage1254(QStringView text);
QString fromCodePage1254(QByteArrayView bytes);

} // namespace turkish
