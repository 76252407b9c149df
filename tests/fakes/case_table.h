#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Cases in a text file beside the tests of a folder, one case a line, "|" between its fields. Blanks round a field do not
// count. A field that needs its blanks, a "|" or an odd byte stands in double quotes, in which \n, \r, \t, \" and \\ are
// characters and \x01 is a byte. A line that begins with a blank goes on with the case above it. Empty lines, and lines that
// begin with "#", are for the reader.

/// The parts of a text between delimiters that stand outside quotes, each without the blanks round it.
inline std::vector<std::string> parts_of(std::string_view text, char delimiter)
{
    std::vector<std::string> parts;
    for (std::size_t start = 0, i = 0, quotes = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] == '"') ++quotes;
        if (quotes % 2 == 1 && i < text.size() && text[i] == '\\') ++i;
        if (i < text.size() && (text[i] != delimiter || quotes % 2 == 1)) continue;
        const std::string_view part = text.substr(start, i - start);
        const std::size_t first = part.find_first_not_of(" \r");
        parts.emplace_back(first == part.npos ? "" : part.substr(first, part.find_last_not_of(" \r") + 1 - first));
        start = i + 1;
    }
    return parts;
}

/// What a field says: the text between its quotes, or the field itself when it is not one quoted text.
inline std::string unquoted(const std::string & field)
{
    if (field.size() < 2 || field.front() != '"' || field.back() != '"') return field;
    std::string text;
    for (std::size_t i = 1; i + 1 < field.size(); ++i) {
        if (field[i] == '"') return field; // a text that begins and ends with quoted ones
        if (field[i] != '\\') {
            text += field[i];
        } else if (field[++i] == 'x') {
            text += static_cast<char>(std::stoi(field.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            text += field[i] == 'n' ? '\n' : field[i] == 'r' ? '\r' : field[i] == 't' ? '\t' : field[i];
        }
    }
    return text;
}

/// The content of a text file whose lines stand in a field with " / " between them.
inline std::string file_of(const std::string & lines)
{
    std::string content;
    for (std::size_t from = 0, end; from < lines.size(); from = end + 3) {
        end = std::min(lines.find(" / ", from), lines.size());
        content += lines.substr(from, end - from) + "\r\n";
    }
    return content;
}

/// All cases of a file. A file that is missing or empty and a case with other than `columns` fields end the test.
template <std::size_t columns>
std::vector<std::array<std::string, columns>> cases_of(const std::string & name)
{
    std::vector<std::string> texts;
    std::ifstream file(TEST_DATA_FOLDER "/" + name, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (line.find_first_not_of(" \r") == line.npos || line[0] == '#') continue;
        if (line[0] == ' ' && !texts.empty())
            texts.back() += line;
        else
            texts.push_back(line);
    }
    if (texts.empty()) throw std::runtime_error(name + ": no case");
    std::vector<std::array<std::string, columns>> cases(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::vector<std::string> fields = parts_of(texts[i], '|');
        if (fields.size() != columns) throw std::runtime_error(name + ": fields too many or too few: " + texts[i]);
        for (std::size_t column = 0; column < columns; ++column) cases[i][column] = unquoted(fields[column]);
    }
    return cases;
}

/// The number that a field is.
template <class Number = std::int32_t>
Number number_in(const std::string & field)
{
    Number number{};
    const auto [end, fault] = std::from_chars(field.data(), field.data() + field.size(), number);
    if (fault != std::errc() || end != field.data() + field.size()) throw std::runtime_error("no number: " + field);
    return number;
}
