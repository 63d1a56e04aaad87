#pragma once

#include "common/printers.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <optional>
#include <vector>

/// What one document asked for and how it went.
struct RecordedDocument
{
    QString printer;
    PrinterSetup setup;
    int pages = 1;
    bool finished = false;
    bool cancelled = false;
};

/// Printers that print into memory and can be made to fail.
class RecordingPrinters final : public Printers
{
public:
    QStringList names() const override { return list; }
    std::unique_ptr<PrintDocument> open(const QString &name, const PrinterSetup &setup) override
    {
        if (!list.contains(name))
            return nullptr;
        documents.push_back({name, setup});
        return std::make_unique<Document>(*this, documents.size() - 1);
    }

    QStringList list{QStringLiteral("PDF")};
    std::vector<RecordedDocument> documents;
    int resolution = 600;
    bool failToBegin = false;
    int failBeforePage = 0; ///< newPage() fails when this page would start
    std::optional<QString> finishError;

private:
    class Device final : public QPdfWriter
    {
    public:
        Device(RecordingPrinters &printers, std::size_t number, QIODevice *device)
            : QPdfWriter(device), m_printers(printers), m_number(number)
        {
            setResolution(printers.resolution);
        }
        bool newPage() override
        {
            RecordedDocument &document = m_printers.documents[m_number];
            if (document.pages + 1 == m_printers.failBeforePage)
                return false;
            ++document.pages;
            return QPdfWriter::newPage();
        }

    private:
        RecordingPrinters &m_printers;
        std::size_t m_number;
    };

    class Document final : public PrintDocument
    {
    public:
        Document(RecordingPrinters &printers, std::size_t number)
            : m_printers(printers), m_number(number)
        {
            m_buffer.open(QIODevice::WriteOnly);
            if (printers.failToBegin) // a device takes only one painter
                m_blocker.begin(&m_device);
        }
        QPagedPaintDevice &device() override { return m_device; }
        void cancel() override { m_printers.documents[m_number].cancelled = true; }
        void finish() override
        {
            if (m_printers.finishError)
                throw PrintError(*m_printers.finishError);
            m_printers.documents[m_number].finished = true;
        }

    private:
        RecordingPrinters &m_printers;
        std::size_t m_number;
        QBuffer m_buffer;
        Device m_device{m_printers, m_number, &m_buffer};
        QPainter m_blocker;
    };
};
