#pragma once

#include "common/printers.h"

#include <QBuffer>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>
#include <QStringList>

#include <optional>
#include <vector>

/// What one document asked for and how it went.
struct RecordedDocument
{
    QString printer;
    PrinterSetup setup;
    int pages = 1;
    QStringList texts; ///< in the order they were painted
    bool finished = false;
    bool cancelled = false;
};

/// Printers that remember what was painted and can be made to fail.
class RecordingPrinters final : public Printers
{
public:
    QStringList names() const override { return list; }
    QList<PrinterPaper> papers(const QString &) const override
    {
        return {{QStringLiteral("A4"), 9, {210, 297}}, {QStringLiteral("A5"), 11, {148, 210}}};
    }
    std::unique_ptr<PrintDocument> open(const QString &name, const PrinterSetup &setup) override
    {
        if (!list.contains(name))
            return nullptr;
        documents.push_back({name, setup, 1, {}});
        return std::make_unique<Document>(*this, documents.size() - 1);
    }

    QStringList list{QStringLiteral("PDF")};
    std::vector<RecordedDocument> documents;
    bool failToBegin = false;
    int failBeforePage = 0; ///< newPage() fails when this page would start
    std::optional<QString> finishError;

private:
    /// Keeps the texts that are painted instead of painting them.
    class TextRecorder final : public QPaintEngine
    {
    public:
        TextRecorder(RecordingPrinters &printers, std::size_t number)
            : QPaintEngine(AllFeatures), m_printers(printers), m_number(number)
        {}
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState &) override {}
        void drawPath(const QPainterPath &) override {}
        using QPaintEngine::drawPolygon;
        void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
        void drawTextItem(const QPointF &, const QTextItem &item) override
        {
            m_printers.documents[m_number].texts += item.text();
        }
        Type type() const override { return User; }

    private:
        RecordingPrinters &m_printers;
        std::size_t m_number;
    };

    /// Has the metrics of a PDF page.
    class Device final : public QPdfWriter
    {
    public:
        Device(RecordingPrinters &printers, std::size_t number, QIODevice *device)
            : QPdfWriter(device), m_printers(printers), m_number(number),
              m_recorder(printers, number)
        {
            setResolution(600);
        }
        QPaintEngine *paintEngine() const override { return &m_recorder; }
        bool newPage() override
        {
            RecordedDocument &document = m_printers.documents[m_number];
            if (document.pages + 1 == m_printers.failBeforePage)
                return false;
            ++document.pages;
            return true;
        }

    private:
        RecordingPrinters &m_printers;
        std::size_t m_number;
        mutable TextRecorder m_recorder;
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
