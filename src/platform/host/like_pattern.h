#pragma once

#include "common/turkish_order.h"

#include <optional>

/// A LIKE pattern as the server reads it: % any text, _ any one character, [a-z] one of a set,
/// [^a-z] one not of it; letters as the Turkish alphabet orders them. Read once, matched against
/// many rows without taking memory for each.
class LikePattern
{
public:
    /// `escape`: the character after which the next one stands for itself.
    explicit LikePattern(std::string_view pattern,
                         std::optional<turkish_order::Weight> escape = std::nullopt);

    /// Time grows with the length of the text times that of the pattern at worst, whatever the
    /// pattern. Blanks at the end of the text need no counterpart in the pattern.
    bool matches(std::string_view text);

private:
    using Weight = turkish_order::Weight;

    enum class Kind
    {
        letter,
        anyOne,
        anyText,
        set,
        nothing
    };
    struct Range
    {
        Weight first;
        Weight last;
    };
    struct Token
    {
        Kind kind;
        Weight letter = 0;
        bool negated = false;
        std::vector<Range> ranges = {};
    };

    static Token readSet(const std::vector<Weight> &pattern, std::size_t &at);
    static bool accepts(const Token &token, Weight letter);
    bool onlyBlanksFrom(std::size_t at) const;

    std::vector<Token> m_tokens;
    std::vector<Weight> m_text;
};
