#pragma once

#include <QString>

#include <variant>

/// Joins what is kept in one text: codes of a list, the two colours of its rows.
inline constexpr QStringView kCodeMark = u"<1234>";

/// The two row colours of the lists, 0x00BBGGRR.
struct ListColours
{
    int row = 0;
    int alternate = 0;

    friend bool operator==(const ListColours &, const ListColours &) = default;
};

/// The settings of the working folder, named as `data.dbs` names its tables and columns. Made with
/// the design values of settings_table.h.
struct Settings
{
    Settings();

    struct Kdv
    {
        QString kdv; ///< VAT rate of a stock without one
    } kdv;

    struct Ses
    {
        bool bulses = false;   ///< sound for a found item
        bool bulmases = false; ///< sound for an item not found
    } ses;

    struct Yazici
    {
        QString yazici1;       ///< receipt printer
        bool yazdirma = false; ///< print a receipt after a sale
    } yazici;

    struct Login
    {
        QString sifre; ///< password in front of the settings
    } login;

    struct Server
    {
        QString kuladi;
        QString sifre;
        QString server; ///< host, including any instance part
        QString sql;    ///< database of the company's books
        QString msql;   ///< shared database of the accounting system

        friend bool operator==(const Server &, const Server &) = default;
    } server;

    struct Instan // kept only, the connection string does not use it
    {
        QString insname;
        bool inskullan = false;
    } instan;

    struct Stok
    {
        QString br2fytadi; ///< label prices of the second and first unit: name and number
        QString br1fytadi;
        QString br2fyt;
        QString br1fyt;
        QString depoadi; ///< what a sale is booked on: name and code each
        QString depo;
        QString fytadi; ///< sale price
        QString fiyatip;
        QString cari;
        QString carikod;
        QString stkfistipadi; ///< slip types: stock, account, invoice
        QString stkfistip;
        QString crfistipadi;
        QString crfistip;
        QString ftfistipadi;
        QString ftfistip;
    } stok;

    struct Liste
    {
        bool enust = false;   ///< the till stays over other windows
        bool tmekran = false; ///< the till fills the screen
        bool winac = false;   ///< the program starts with the machine
        int yzrenk = 0;       ///< text colour
        ListColours listrenk;
        QString title;
        int bold = 0; ///< 0 regular, 1 bold, 2 italic, 3 bold italic
        QString font;
        QString size;
    } liste;

    struct Per
    {
        bool per = false; ///< cashier by personal code
    } per;

    struct Kasa
    {
        bool silsifre = false; ///< deleting a line and selling at zero want the settings password
        bool musteri = false;  ///< a second window turns the sale to the customer
    } kasa;

    struct Olcu
    {
        QString olcu; ///< column widths of the sale lists, joined by "-"
    } olcu;
};

/// Where one setting stands in a Settings value.
using SettingPlace = std::variant<QString *, bool *, int *, ListColours *>;

/// A setting as it is stored: flags "0" and "1", numbers in digits.
QString storedText(const SettingPlace &place);

/// Takes a stored text over; a number that is none leaves the setting as it was.
void takeStored(const SettingPlace &place, QStringView text);
