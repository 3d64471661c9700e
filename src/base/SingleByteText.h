// Text: UTF-8 inside the program, Windows-1252 in every file.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// The Windows-1252 bytes of UTF-8 text, one per character. A character outside the code page
/// becomes the low 8 bits of its code; a byte that is no valid UTF-8 is kept as it is.
std::string ToSingleByte(std::string_view utf8);

/// The UTF-8 text of Windows-1252 bytes. The five unassigned bytes map to the control codes of the
/// same value, so every byte string survives the round trip.
std::string FromSingleByte(std::string_view bytes);

/// The text with bytes that are no valid UTF-8 replaced by the characters of the same value.
std::string ValidUtf8(std::string_view text);

/// Number of characters of UTF-8 text, which is the number of bytes it has in a file.
std::size_t CharacterCount(std::string_view utf8);

/// Lower case over the whole code page; characters outside it stay as they are.
std::string LowerCase(std::string_view utf8);

/// Upper case over the whole code page; characters outside it stay as they are.
std::string UpperCase(std::string_view utf8);

/// Whether two UTF-8 texts are equal ignoring letter case, by their lower case.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

}  // namespace korvane
