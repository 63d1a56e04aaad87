#pragma once

#include <QStringList>

/// What the set-up needs of the rooms that print: the shop's label layouts and a test on paper.
/// `directory`: the working folder of the till whose layouts are meant.
class SetupPrinting
{
public:
    virtual ~SetupPrinting() = default;

    virtual QStringList layouts(const QString &directory) const = 0;

    /// The layout that prints without a question, "" when there is none.
    virtual QString defaultLayout(const QString &directory) const = 0;
    virtual QString printerOf(const QString &directory, const QString &layout) const = 0;

    /// False when the file could not be written.
    virtual bool setPrinter(const QString &directory, const QString &layout,
                            const QString &printer) = 0;
    virtual bool setDefaultLayout(const QString &directory, const QString &layout) = 0;

    /// A made-up sale and a made-up label. Throw PrintError.
    virtual void printReceipt(const QString &printer) = 0;
    virtual void printLabel(const QString &directory, const QString &layout,
                            const QString &printer) = 0;
};
