#pragma once

#include "common/printers.h"

#include <QPageLayout>
#include <QPdfWriter>
#include <QTemporaryFile>

/// A temporary file that remembers whether all of its bytes were taken.
class CheckedFile final : public QTemporaryFile
{
    Q_OBJECT

public:
    using QTemporaryFile::QTemporaryFile;
    bool complete() const { return m_complete; }

protected:
    qint64 writeData(const char *data, qint64 size) override;

private:
    bool m_complete = true;
};

/// A document written as a PDF file with print scaling off. The file appears whole under its name
/// when the document is finished, or not at all.
class PdfDocument final : public PrintDocument
{
public:
    static constexpr int kResolution = 600; ///< dots per inch of the built-in printer

    struct Page
    {
        QPageLayout layout;
        int resolution = kResolution; ///< dots per inch of the drawing grid
    };

    /// `folder` is made when it is missing; the file is called `name`.pdf there, with a number
    /// added when that exists. Throws PrintError.
    PdfDocument(const QString &folder, const QString &name, const QString &title, const Page &page);

    QPagedPaintDevice &device() override { return *m_writer; }
    void finish() override;

    /// Where the finished file lies.
    const QString &path() const { return m_path; }

private:
    void appendUpdate();
    [[noreturn]] void fail() const;

    QString m_folder;
    QString m_name;
    QString m_path;
    CheckedFile m_file;
    std::unique_ptr<QPdfWriter> m_writer;
};

/// File name of a document printed at a moment: its letters and digits, then date and time.
QString pdfName(const QString &document, const QDateTime &moment);
