#pragma once

#include "fakes/fake_ports.h"
#include "labels/print/print_run.h"
#include "support/files.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

struct PrintFolder
{
    QTemporaryDir directory;
};

/// A print run over a working folder with layouts, on a machine of fakes.
struct PrintDesk : PrintFolder, FakeMachine
{
    PrintDesk() : FakeMachine(directory.path()) { QDir().mkpath(pictureFolder(directory.path())); }

    /// The key file lives in memory; an empty file of its name makes it show in the list.
    void addLayout(const QString &name, const LabelLayout &layout)
    {
        const QString path = layoutFolder(directory.path()) + QChar(u'/') + name;
        saveLayout(keys, path, layout);
        writeFile(path, {});
    }
    void setDefault(const QString &name)
    {
        ASSERT_TRUE(setDefaultLayout(keys, directory.path(), name));
    }

    /// 2 × 2 labels with the stock's name.
    static LabelLayout plainLayout()
    {
        LabelLayout layout;
        TextElement name;
        name.box = {2, 2, 50, 6};
        name.font = {QStringLiteral("DejaVu Sans"), 8};
        name.alignment = QStringLiteral("1");
        name.field = QStringLiteral("Stok Adı");
        layout.texts = {name};
        layout.paperWidth = QStringLiteral("120");
        layout.paperHeight = QStringLiteral("80");
        layout.orientation = QStringLiteral("1");
        layout.paperCode = QStringLiteral("256");
        layout.printer = QStringLiteral("PDF");
        layout.stepX = QStringLiteral("60");
        layout.stepY = QStringLiteral("40");
        layout.across = QStringLiteral("2");
        layout.down = QStringLiteral("2");
        return layout;
    }
    static LabelLayout barcodeLayout()
    {
        LabelLayout layout = plainLayout();
        layout.barcodes = {{{5, 10, 40, 24}, {QStringLiteral("DejaVu Sans"), 8}, 0, 0, 0, {}}};
        return layout;
    }
    static LabelRow row(const QString &name, int count, int queueRow = 0)
    {
        return {QStringLiteral("8690000000012"),
                QStringLiteral("STK"),
                name,
                QStringLiteral("1,00"),
                count,
                queueRow};
    }

    PrintRun run{program};
};
