#pragma once

#include "sales/quantity.h"

#include <QValidator>

/// Drops keys that an amount cannot hold, a second comma among them.
class AmountValidator final : public QValidator
{
public:
    using QValidator::QValidator;

    State validate(QString &text, int &) const override
    {
        for (qsizetype i = 0; i < text.size(); ++i)
            if (!quantity::accepts(QStringView(text).first(i), text.at(i)))
                return Invalid;
        return Acceptable;
    }
};
