#pragma once

#include <QByteArray>
#include <QString>

/// Turkish letters, independent of the machine's locale and of ICU.
namespace turkish {

/// Upper and lower case with the Turkish i: i ↔ İ, ı ↔ I.
QString upper(QStringView text);
QString lower(QStringView text);

/// Code page 1254 (Windows Turkish), the encoding of every key file and layout file. Characters it
/// lacks become '?'. Table: the published mapping of Windows code page 1254; its undefined bytes
/// map to the C1 control of the same number, so that every byte survives a round trip.
QByteArray toCodePage1254(QStringView text);
QString fromCodePage1254(QByteArrayView bytes);

} // namespace turkish
