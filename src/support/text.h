#pragma once

#include "support/list.h"

#include <string>
#include <string_view>

/// The text without the blanks at both ends. Only blanks count, as in the formats; tabs stay.
std::string_view trim(std::string_view text);

/// The trimmed text without a surrounding pair of double quotes, trimmed again.
std::string_view without_quotes(std::string_view field);

/// ASCII letters only; the rest stays.
std::string upper_case(std::string_view text);

/// True when the texts are equal but for the case of ASCII letters, blanks around them aside.
bool same_text(std::string_view a, std::string_view b);

/// Takes the first token off `text`, shortening it.
///
/// Leading blanks and tabs are skipped. A token starting with a double quote runs to the closing quote and keeps both;
/// any other runs to the first blank, tab, comma, semicolon or apostrophe. The blanks behind it and one comma, semicolon
/// or apostrophe among them go too.
std::string_view next_token(std::string_view & text);

/// The trimmed text before the first `delimiter`, leaving the trimmed rest in `text`; without one, all of it.
std::string take_field(std::string & text, char delimiter);

/// As `take_field`, with the text unchanged and the rest in `tail`.
std::string split_at_first(char delimiter, std::string_view text, std::string & tail);

/// Takes "key=value" off the front of `text` with `delimiter` for "=". The key is the trimmed text before it, empty when there
/// is none. A value in double quotes or round brackets runs to the closing mark; one with no further delimiter behind it takes
/// all the rest; any other is one token.
std::string next_key_value(char delimiter, std::string & text, std::string & value);

/// Splits a text into fields: at `delimiter` when the text holds one, otherwise by `next_token`. A field that starts with a
/// double quote is a token in any case. Each field loses a surrounding pair of quotes and is trimmed. A blank delimiter is a
/// comma. count: fields wanted; 0 takes all and is set to their number. The list always ends with `count` fields.
void split_fields(std::int32_t & count, std::string_view text, char delimiter, List<std::string> & fields);

/// Blanks on the right, or cut to `width`.
std::string pad_text(std::string_view text, int width);

/// Blanks on the left to exactly `width` characters; a longer text keeps its first `width`.
std::string pad_left(std::string_view text, int width);

/// The trimmed text before the first NUL.
std::string text_before_nul(std::string_view text);

/// True for a text in UTF-8, which plain ASCII is too; a text in another code page hardly ever is.
bool is_utf8(std::string_view text);
