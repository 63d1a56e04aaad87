#pragma once

#include "common/printers.h"

#include <QBuffer>
#include <QPaintEngine>
#include <QPdfWriter>
#include <QStringList>

#include <utility>

/// What a receipt printer was given, sheet by sheet.
struct PrintedPaper
{
    PrinterSetup setup;
    QStringList texts;
};

/// Keeps the texts that are painted instead of painting them.
class TextRecorder final : public QPaintEngine
{
public:
    TextRecorder() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void drawTextItem(const QPointF &, const QTextItem &item) override { texts += item.text(); }
    Type type() const override { return User; }

    QStringList texts;
};

/// A sheet whose texts are recorded. Metrics are those of a PDF page.
class RecordingPaper final : public QPdfWriter
{
public:
    explicit RecordingPaper(QIODevice *device) : QPdfWriter(device) {}
    QPaintEngine *paintEngine() const override { return &recorder; }
    bool newPage() override { return true; }

    mutable TextRecorder recorder;
};

class RecordedDocument final : public PrintDocument
{
public:
    RecordedDocument(std::vector<PrintedPaper> &printed, PrinterSetup setup, bool broken)
        : m_printed(printed), m_setup(std::move(setup)), m_broken(broken)
    {
        m_buffer.open(QIODevice::WriteOnly);
    }
    QPagedPaintDevice &device() override { return m_paper; }
    void finish() override
    {
        if (m_broken)
            throw PrintError(QStringLiteral("kâğıt bitti"));
        m_printed.push_back({m_setup, m_paper.recorder.texts});
    }

private:
    std::vector<PrintedPaper> &m_printed;
    PrinterSetup m_setup;
    bool m_broken;
    QBuffer m_buffer;
    RecordingPaper m_paper{&m_buffer};
};
