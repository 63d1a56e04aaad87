#pragma once

#include <QToolButton>

/// Shows a colour and lets another be chosen.
class ColourButton final : public QToolButton
{
    Q_OBJECT

public:
    explicit ColourButton(QWidget *parent = nullptr);

    /// A Windows colour number 0x00BBGGRR, or nothing where several elements differ.
    void showColour(std::optional<int> colour);

Q_SIGNALS:
    void edited(int colour);

private:
    void choose();

    std::optional<int> m_colour;
};
