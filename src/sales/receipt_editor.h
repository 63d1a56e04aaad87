#pragma once

#include "sales/receipt_commands.h"

#include <QObject>

class Program;

/// Edits the receipt layout: preview, test print and saving.
class ReceiptEditor final : public QObject
{
    Q_OBJECT

public:
    explicit ReceiptEditor(Program &program, QObject *parent = nullptr);

    /// Reads the stored layout.
    const ReceiptLayout &load();
    const ReceiptLayout &layout() const { return m_layout; }

    /// Takes what the fields hold now and draws it anew. The first time they only show the stored
    /// layout in their own spelling: that is no change.
    void edit(const ReceiptLayout &layout);

    /// The sample sale in the edited layout.
    ReceiptPage preview() const;

    /// Prints the sample sale on the receipt printer; a failure is told.
    void testPrint();

    /// True when everything was saved; a failure is told and what was typed stays.
    bool save();

    bool changed() const { return m_layout != m_stored; }

    /// Asks whether unsaved changes may be dropped; true when there are none.
    bool mayClose();

Q_SIGNALS:
    void previewChanged();
    void saved(); ///< the till reads its layout again

private:
    Program &m_program;
    ReceiptLayout m_stored;
    ReceiptLayout m_layout;
    bool m_touched = false; ///< edited after the fields first showed the layout
};
