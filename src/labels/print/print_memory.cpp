#include "labels/print/print_memory.h"

#include "common/amount.h"

#include <QCryptographicHash>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString sectionOf(const QString &layout)
{
    return u"tasarim "_s + layout;
}

QString printerSection(const QString &printer)
{
    return u"yazıcı "_s + printer;
}

/// Values of a key file are short; the problems of a layout need not be.
QString digest(const QString &problems)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(problems.toUtf8(), QCryptographicHash::Sha1).toHex());
}

} // namespace

QString PrintMemory::read(const QString &section, const QString &key) const
{
    return m_keys.read(section, key, m_file);
}

bool PrintMemory::write(const QString &section, const QString &key, const QString &value)
{
    return m_keys.write(section, key, value, m_file);
}

bool PrintMemory::isAccepted(const QString &layout, const QString &problems) const
{
    return read(sectionOf(layout), u"kabul"_s) == digest(problems);
}

void PrintMemory::accept(const QString &layout, const QString &problems)
{
    write(sectionOf(layout), u"kabul"_s, digest(problems));
}

qint64 PrintMemory::nextPlace(const QString &layout) const
{
    return std::max(amount::integer(read(sectionOf(layout), u"yer"_s)), 1);
}

void PrintMemory::setNextPlace(const QString &layout, qint64 place)
{
    if (place != nextPlace(layout))
        write(sectionOf(layout), u"yer"_s, QString::number(place));
}

Calibration PrintMemory::calibration(const QString &printer) const
{
    const auto number = [&](const QString &key, double without) {
        return amount::parse(read(printerSection(printer), key)).value_or(without);
    };
    const Calibration read{number(u"x"_s, 0), number(u"y"_s, 0), number(u"olcek"_s, 100) / 100};
    const bool possible = std::abs(read.x) <= kMostOffset && std::abs(read.y) <= kMostOffset &&
                          std::abs(read.scale - 1) <= kMostStretch;
    return possible ? read : Calibration{};
}

bool PrintMemory::setCalibration(const QString &printer, const Calibration &calibration)
{
    const QString section = printerSection(printer);
    return write(section, u"x"_s, amount::plain(calibration.x)) &&
           write(section, u"y"_s, amount::plain(calibration.y)) &&
           write(section, u"olcek"_s, amount::plain(calibration.scale * 100));
}
