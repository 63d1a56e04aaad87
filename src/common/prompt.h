#pragma once

#include <QString>

#include <functional>

/// One message box of the program, ready to show.
struct Message
{
    QString text;
    QString caption;
    int icon = 0;    ///< 1 → picture `i3`, 2 → `i2`, 3 → `i1`, other: none
    int buttons = 0; ///< 1 "TAMAM"; 2 "EVET" and "HAYIR"; other: none
};

/// How a message box ended; the numbers are those of the answer value `cevap`.
enum class Answer
{
    no = 0,
    yes = 1,
    closed = 2
};

/// Asks the user. Modal: returns when the user has answered.
class Prompt
{
public:
    virtual ~Prompt() = default;

    /// The program's own message box.
    Answer show(const Message &message)
    {
        if (beforeBox)
            beforeBox();
        return open(message);
    }

    /// Called before that box opens; may be empty.
    std::function<void()> beforeBox;

    /// The system's plain box with the title "Dikkat" and one button, used by the print commands.
    virtual void warn(const QString &text, bool critical) = 0;

    /// The system's plain box with "Evet" and "Hayır".
    virtual bool confirm(const QString &text) = 0;

private:
    virtual Answer open(const Message &message) = 0;
};
