#pragma once

#include <QDoubleSpinBox>

/// A length in millimetres with one decimal, typed with a comma or a point. It can stand empty,
/// where several elements differ.
class LengthBox final : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit LengthBox(QWidget *parent = nullptr);

    /// Shows a length, or nothing.
    void showLength(std::optional<double> mm);

Q_SIGNALS:
    /// The user typed or stepped to a new length.
    void edited(double mm);

protected:
    QValidator::State validate(QString &input, int &pos) const override;
    double valueFromText(const QString &text) const override;
    QString textFromValue(double value) const override;
    void stepBy(int steps) override;

private:
    bool m_quiet = false;
    bool m_blank = false;
};
