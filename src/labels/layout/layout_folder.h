#pragma once

#include "common/program.h"
#include "labels/layout/label_layout.h"

/// The label layouts a shop has: the files of the folder `ayar`, the default among them and the
/// printer that each prints on.
class LayoutFolder
{
public:
    explicit LayoutFolder(Program &program) : LayoutFolder(program, program.directory()) {}

    /// Those of another working folder.
    LayoutFolder(Program &program, const QString &directory)
        : m_program(program), m_directory(directory)
    {}

    /// Names of the layout files, in alphabetical order.
    QStringList names() const;

    /// The file that a typed name stands for, with or without its extension and in any case; ""
    /// when there is none.
    QString find(const QString &typed) const;

    LabelLayout open(const QString &name) const;

    /// True while the file is in the code page of layouts; an editor may have saved it in Unicode.
    bool isReadable(const QString &name) const;

    /// Offers to convert a file that is not. False when it stays unreadable (told).
    bool makeReadable(const QString &name);

    /// The layout that prints without a question, "" when there is none.
    QString defaultName() const;

    /// Makes a layout the default; "" leaves none. False when it could not be written (told).
    bool setDefault(const QString &name);

    /// The printers to choose from.
    QStringList printers() const { return m_program.printers.names(); }

    /// Prints a layout on another printer from now on. False when the layout file could not be
    /// written (told).
    bool setPrinter(const QString &name, const QString &printer);

private:
    QString path(const QString &name) const;
    bool told(bool written, const QString &file);

    Program &m_program;
    QString m_directory;
};
