#include "labels/designer/forms/length_box.h"

#include "common/amount.h"

#include <QLineEdit>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNarrowest = 86; ///< pixels, for "−123,4 mm"

} // namespace

LengthBox::LengthBox(QWidget *parent) : QDoubleSpinBox(parent)
{
    setDecimals(1);
    setSingleStep(0.1);
    setRange(-1000, 1000);
    setSuffix(u" mm"_s);
    setMinimumWidth(kNarrowest);
    setKeyboardTracking(false);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(this, &QDoubleSpinBox::valueChanged, this, [this](double mm) {
        if (!m_quiet)
            Q_EMIT edited(mm);
    });
}

void LengthBox::showLength(std::optional<double> mm)
{
    // What the user is typing is not taken from under the hands.
    if (hasFocus() && lineEdit()->isModified())
        return;
    const QScopedValueRollback quiet(m_quiet, true);
    m_blank = !mm;
    setValue(mm.value_or(0));
    if (m_blank)
        lineEdit()->clear();
    else
        lineEdit()->setText(textFromValue(*mm) + suffix());
}

/// Shops type 12.5 as often as 12,5.
QValidator::State LengthBox::validate(QString &input, int &) const
{
    const QString text = QString(input).remove(suffix()).trimmed();
    if (text.isEmpty() || text == u"-"_s)
        return QValidator::Intermediate;
    const auto mm = amount::parse(QString(text).replace(u'.', u','));
    if (!mm)
        return text.endsWith(u',') || text.endsWith(u'.') ? QValidator::Intermediate
                                                          : QValidator::Invalid;
    return *mm >= minimum() && *mm <= maximum() ? QValidator::Acceptable : QValidator::Intermediate;
}

double LengthBox::valueFromText(const QString &text) const
{
    const QString number = QString(text).remove(suffix()).trimmed().replace(u'.', u',');
    return amount::parse(number).value_or(value());
}

QString LengthBox::textFromValue(double value) const
{
    return amount::length(value);
}

void LengthBox::stepBy(int steps)
{
    if (!m_blank)
        QDoubleSpinBox::stepBy(steps);
}
