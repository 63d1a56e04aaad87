#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// How a server of the Turkish alphabet orders text: without regard to case, with regard to
/// accents. ı/I and i/İ are two letters; symbols come before digits, digits before letters, other
/// alphabets last. Works on UTF-8; damaged text is taken as it comes, every bad byte a symbol.
namespace turkish_order {

/// Place of one character in the alphabet: the letter above, its accent in the lowest byte. Two
/// characters are the same to the server when their weights are equal.
using Weight = std::uint32_t;

/// Weight of the first character of `text`, which must not be empty; `text` loses it.
Weight next(std::string_view &text);

/// Less than, equal to or greater than 0. Blanks at the end do not count. Letters decide first,
/// accents only between texts of the same letters.
int compare(std::string_view a, std::string_view b);

/// The weights of a whole text, into `weights` (its memory is used again).
void fold(std::string_view text, std::vector<Weight> &weights);

/// The weight of a blank.
Weight blank();

} // namespace turkish_order
