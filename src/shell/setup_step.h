#pragma once

#include "common/settings.h"

#include <QList>

#include <span>

/// How a till gets its settings.
enum class SetupWay
{
    demo,      ///< the demo shop
    ownLedger, ///< every question
    otherTill  ///< the settings of a till that works; only the printers are asked for
};

/// The steps of the set-up, a question each.
enum class SetupStep
{
    way,
    folder,
    server,
    databases,
    diagnosis,
    warehouse,
    salePrice,
    customer,
    stockSlip,
    accountSlip,
    invoiceType,
    labelPrice1,
    labelPrice2,
    receiptPrinter,
    labelPrinter,
    password,
    summary
};

QList<SetupStep> setupSteps(SetupWay way);

/// What a step asks, and what the answer is for.
struct SetupQuestion
{
    QString question;
    QString explanation;
};
SetupQuestion setupQuestion(SetupStep step);

/// A question that is answered with a code of the ledger.
struct CodeQuestion
{
    SetupStep step;
    QStringView caption;
    QStringView table;
    QStringView key;
    QStringView display;
    QString Settings::Stok::*code;
    QString Settings::Stok::*name;
};
std::span<const CodeQuestion> codeQuestions();

/// Null for steps that ask for something else.
const CodeQuestion *codeQuestion(SetupStep step);
