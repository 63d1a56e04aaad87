#pragma once

#include "common/settings_database.h"

#include <QList>

/// What the till reads of the settings database when it opens; every value is text as stored, ""
/// when it could not be read.
struct SaleSettings
{
    QString kdv;       ///< default VAT rate
    QString bulses;    ///< "1": sound for a found item
    QString bulmases;  ///< "1": sound for an item not found
    QString yazici1;   ///< receipt printer
    QString yazdirma;  ///< "1": print a receipt after a sale
    QString depo;      ///< warehouse code
    QString fiyatip;   ///< price number used for lookups
    QString cari;      ///< name of the customer account
    QString carikod;   ///< its code
    QString stkfistip; ///< slip types: stock, account, invoice
    QString crfistip;
    QString ftfistip;
    QString listrenk; ///< two row colours joined by "<1234>"
    QString yzrenk;   ///< text colour
    QString font;
    QString size;
    QString bold; ///< 0 regular, 1 bold, 2 italic, 3 bold italic
    QString title;
    QString tmekran; ///< "1": full screen
    QString enust;   ///< "1": the till stays over other windows
    QString per;     ///< "1": cashier by personal code

    bool foundSound() const { return bulses == u"1"; }
    bool notFoundSound() const { return bulmases == u"1"; }
    bool printsReceipt() const { return yazdirma == u"1"; }
    bool fullScreen() const { return tmekran == u"1"; }
    bool staysOnTop() const { return enust == u"1"; }
    bool cashierByCode() const { return per == u"1"; }
};

/// Reads the tables kdv, ses, yazici, stok, liste and per; what cannot be read stays empty.
SaleSettings oku(Program &program);

/// Column widths of the sale lists in pixels, as they were saved; empty when there are none that
/// fit.
QList<int> olcuyukle(Program &program);

/// Saves the column widths; returns false when the settings database refused.
bool olcukaydet(Program &program, const QList<int> &widths);
