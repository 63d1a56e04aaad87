#pragma once

#include "labels/desk/label_prices.h"
#include "labels/print/label_row.h"

#include <QString>

#include <vector>

class Program;

/// Finds stocks for a label that is being drawn, beside the stock list of the label form.
class SampleSearch
{
public:
    explicit SampleSearch(Program &program) : m_program(program) {}

    /// The stocks whose name or code holds the text, or that own it as a barcode. `prices`: as the
    /// label form reads them. Handles events while it reads; another search meanwhile finds none.
    std::vector<LabelRow> find(const QString &text, const PriceNumbers &prices);

private:
    Program &m_program;
    bool m_busy = false;
};
