#include "platform/host/like_pattern.h"

#include <algorithm>

using turkish_order::Weight;

namespace {

Weight weightOf(std::string_view character)
{
    return turkish_order::next(character);
}

} // namespace

LikePattern::LikePattern(std::string_view pattern, std::optional<Weight> escape)
{
    const Weight percent = weightOf("%");
    const Weight underline = weightOf("_");
    const Weight bracket = weightOf("[");
    std::vector<Weight> letters;
    turkish_order::fold(pattern, letters);
    for (std::size_t at = 0; at < letters.size(); ++at) {
        const Weight letter = letters[at];
        if (escape && letter == *escape && at + 1 < letters.size())
            m_tokens.push_back({Kind::letter, letters[++at]});
        else if (letter == percent)
            m_tokens.push_back({Kind::anyText});
        else if (letter == underline)
            m_tokens.push_back({Kind::anyOne});
        else if (letter == bracket)
            m_tokens.push_back(readSet(letters, at));
        else
            m_tokens.push_back({Kind::letter, letter});
    }
}

/// `at`: the opening bracket; afterwards the closing one. A set nobody closes matches nothing.
LikePattern::Token LikePattern::readSet(const std::vector<Weight> &pattern, std::size_t &at)
{
    const auto close =
        std::find(pattern.begin() + static_cast<std::ptrdiff_t>(at), pattern.end(), weightOf("]"));
    if (close == pattern.end())
        return {Kind::nothing};
    const std::size_t end = static_cast<std::size_t>(close - pattern.begin());
    std::size_t i = at + 1;
    Token set{Kind::set};
    if (pattern[i] == weightOf("^") && i + 1 < end) {
        set.negated = true;
        ++i;
    }
    for (; i < end; ++i) {
        Range range{pattern[i], pattern[i]};
        if (i + 2 < end && pattern[i + 1] == weightOf("-")) {
            range.last = pattern[i + 2];
            i += 2;
        }
        set.ranges.push_back(range);
    }
    at = end;
    return set;
}

bool LikePattern::accepts(const Token &token, Weight letter)
{
    switch (token.kind) {
    case Kind::letter:
        return token.letter == letter;
    case Kind::anyOne:
        return true;
    case Kind::set: {
        const bool found =
            std::any_of(token.ranges.begin(), token.ranges.end(),
                        [&](const Range &r) { return letter >= r.first && letter <= r.last; });
        return found != token.negated;
    }
    default:
        return false;
    }
}

bool LikePattern::onlyBlanksFrom(std::size_t at) const
{
    const auto from = m_text.begin() + static_cast<std::ptrdiff_t>(at);
    return std::all_of(from, m_text.end(), [](Weight w) { return w == turkish_order::blank(); });
}

/// Each % takes as little as it can; on a mismatch only the last one gives way, by one character.
/// An earlier % never needs to: what lies between the two has been found as early as possible.
bool LikePattern::matches(std::string_view text)
{
    turkish_order::fold(text, m_text);
    constexpr auto none = static_cast<std::size_t>(-1);
    std::size_t token = 0;
    std::size_t at = 0;
    std::size_t lastAnyText = none;
    std::size_t resumeAt = 0;
    while (true) {
        if (token == m_tokens.size()) {
            if (onlyBlanksFrom(at))
                return true;
        } else if (m_tokens[token].kind == Kind::anyText) {
            lastAnyText = token++;
            resumeAt = at;
            if (token == m_tokens.size())
                return true;
            continue;
        } else if (at == m_text.size()) {
            return false;
        } else if (accepts(m_tokens[token], m_text[at])) {
            ++token;
            ++at;
            continue;
        }
        if (lastAnyText == none || resumeAt == m_text.size())
            return false;
        token = lastAnyText + 1;
        at = ++resumeAt;
    }
}
