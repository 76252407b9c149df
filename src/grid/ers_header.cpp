#include "grid/ers_header.h"

#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"
#include "support/text_file.h"

#include <cmath>
#include <map>
#include <utility>

namespace {

using Entries = std::map<std::string, std::string>; // "BLOCK.NAME" in capitals, the innermost block only

std::string tabs_to_blanks(std::string line)
{
    for (char & c : line)
        if (c == '\t') c = ' ';
    return line;
}

/// The name of a line "Name Begin" or "Name End"; empty for any other.
std::string block_name(const std::string & line, const std::string & word)
{
    const std::string upper = upper_case(trim(line));
    return upper.size() > word.size() && upper.ends_with(" " + word)
               ? std::string(trim(std::string_view(upper).substr(0, upper.size() - word.size())))
               : std::string();
}

std::string without_quotes(std::string_view text)
{
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    return std::string(trim(text));
}

Entries read_entries(const std::string & path)
{
    TextFile file(path);
    Entries entries;
    std::vector<std::string> blocks;
    for (std::string line; read_raw_line(file, line);) {
        line = tabs_to_blanks(line);
        if (const std::string opened = block_name(line, "BEGIN"); !opened.empty()) {
            blocks.push_back(opened);
        } else if (!block_name(line, "END").empty()) {
            if (!blocks.empty()) blocks.pop_back();
        } else if (line.find('=') != std::string::npos) {
            std::string value;
            const std::string name = upper_case(split_at_first('=', line, value));
            entries.emplace((blocks.empty() ? "" : blocks.back()) + "." + name, without_quotes(value));
        }
    }
    return entries;
}

std::optional<std::string> entry(const Entries & entries, const std::string & name)
{
    const auto found = entries.find(name);
    return found == entries.end() || found->second.empty() ? std::nullopt : std::optional(found->second);
}

double number(const Entries & entries, const std::string & name) { return leading_number(entry(entries, name).value_or("0")); }

/// "143:35:46.5" in degrees, or a plain number. The sign holds for minutes and seconds too.
double angle(std::string text)
{
    const bool negative = trim(text).starts_with('-');
    double degrees = 0, part = 1;
    while (!trim(text).empty()) {
        degrees += std::abs(leading_number(take_field(text, ':'))) / part;
        part *= 60;
    }
    return negative ? -degrees : degrees;
}

std::string data_file_of(const Entries & entries, const std::string & path)
{
    const auto named = entry(entries, "DATASETHEADER.DATAFILE");
    return named ? path.substr(0, path.size() - file_name_of_path(path).size()) + *named : path.substr(0, path.rfind('.'));
}

std::optional<std::pair<double, double>> registration_coordinate(const Entries & entries)
{
    constexpr std::pair<const char *, const char *> names[] = { { "EASTINGS", "NORTHINGS" },
                                                                { "LONGITUDE", "LATITUDE" },
                                                                { "METERSX", "METERSY" } };
    const std::string block = "REGISTRATIONCOORD.";
    for (const auto & [x_name, y_name] : names) {
        const auto x = entry(entries, block + x_name), y = entry(entries, block + y_name);
        if (x && y) return std::pair{ angle(*x), angle(*y) };
    }
    return std::nullopt;
}

}

ErsHeader read_ers_header(const std::string & path)
{
    const Entries entries = read_entries(path);
    ErsHeader header;
    header.columns = leading_count(entry(entries, "RASTERINFO.NROFCELLSPERLINE").value_or("0"));
    header.rows = leading_count(entry(entries, "RASTERINFO.NROFLINES").value_or("0"));
    header.cell_size_x = number(entries, "CELLINFO.XDIMENSION");
    header.cell_size_y = number(entries, "CELLINFO.YDIMENSION");
    header.rotation = angle(entry(entries, "COORDINATESPACE.ROTATION").value_or("0"));
    header.data_file = data_file_of(entries, path);
    if (const auto coordinate = registration_coordinate(entries)) {
        GridLimits limits;
        limits.west = coordinate->first - number(entries, "RASTERINFO.REGISTRATIONCELLX") * header.cell_size_x;
        limits.north = coordinate->second + number(entries, "RASTERINFO.REGISTRATIONCELLY") * header.cell_size_y;
        limits.east = limits.west + header.columns * header.cell_size_x;
        limits.south = limits.north - header.rows * header.cell_size_y;
        header.limits = limits;
    }
    return header;
}
