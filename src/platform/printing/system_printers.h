#pragma once

#include "common/clock.h"
#include "common/printers.h"

/// The printers of the operating system and the built-in "PDF".
class SystemPrinters final : public Printers
{
public:
    /// `directory`: the working folder, which holds `cikti`. The clock names the PDF files; it is
    /// kept by reference.
    SystemPrinters(const QString &directory, const Clock &clock);

    /// A printer of the system that is called "PDF" takes the built-in one's place.
    QStringList names() const override;
    QList<PrinterPaper> papers(const QString &name) const override;
    std::unique_ptr<PrintDocument> open(const QString &name, const PrinterSetup &setup) override;

private:
    QString m_directory;
    const Clock &m_clock;
};
