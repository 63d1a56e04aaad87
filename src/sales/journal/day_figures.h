#pragma once

#include <QDate>
#include <QString>

#include <array>
#include <vector>

class JournalFile;

/// What one rate of VAT came to, in kuruş.
struct RateFigures
{
    QString rate;
    qint64 net = 0;
    qint64 vat = 0;
};

struct HourFigures
{
    int sales = 0;
    qint64 total = 0; ///< kuruş
};

/// The sales of one cashier, or of all. Amounts in kuruş.
struct CashierFigures
{
    QString name; ///< empty: of all, or nobody was chosen
    int sales = 0;
    qint64 gross = 0;
    qint64 discount = 0;
    qint64 vat = 0;
    qint64 total = 0;
    qint64 cash = 0;
    qint64 card = 0;
    int deletedLines = 0;
    qint64 deleted = 0; ///< what they were worth
    int incomplete = 0;
    std::vector<RateFigures> rates;
    std::array<HourFigures, 24> hours;
};

/// What a till sold on the days from the first to the last.
struct DayFigures
{
    QDate from;
    QDate to;
    CashierFigures all;
    std::vector<CashierFigures> cashiers; ///< by name
};

/// Read from the journal, a month at a time: a year is no longer wait than its months. Throws
/// HostError when it takes too long: a month that lacks would not be seen.
DayFigures readDays(JournalFile &file, QDate from, QDate to);
