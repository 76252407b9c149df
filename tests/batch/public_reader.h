#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numeric>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// The mesh, model and observation files as their public descriptions have them, read by means that share nothing with the
// program under test. Anything out of form throws std::runtime_error.

namespace public_format {

/// The words of each line; line ends are CR LF, or LF alone.
inline std::vector<std::vector<std::string_view>> words_by_line(std::string_view text)
{
    std::vector<std::vector<std::string_view>> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string_view line = text.substr(at, end - at);
        lines.emplace_back();
        for (std::size_t from = 0; (from = line.find_first_not_of(" \r", from)) != std::string_view::npos;) {
            const std::size_t to = std::min(line.find_first_of(" \r", from), line.size());
            lines.back().push_back(line.substr(from, to - from));
            from = to;
        }
        at = end + 1;
    }
    return lines;
}

inline double number(std::string_view word)
{
    double value = 0;
    const auto [end, fault] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (fault != std::errc() || end != word.data() + word.size()) throw std::runtime_error("no number: " + std::string(word));
    return value;
}

/// Cell edges: x and y ascending from the south-west corner, z descending from the top.
struct Mesh {
    std::vector<double> x, y, z;
    std::size_t cells() const { return (x.size() - 1) * (y.size() - 1) * (z.size() - 1); }
};

/// Three counts, the top south-west corner, then the widths of each axis as numbers or as count*width. What may follow the
/// widths is left alone.
inline Mesh read_mesh(std::string_view text)
{
    std::vector<std::string_view> words;
    for (const auto & line : words_by_line(text)) words.insert(words.end(), line.begin(), line.end());
    if (words.size() < 9) throw std::runtime_error("the mesh is too short");
    Mesh mesh;
    std::vector<double> * const axes[] = { &mesh.x, &mesh.y, &mesh.z };
    std::size_t at = 6;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::vector<double> & edges = *axes[axis];
        const auto edge_count = static_cast<std::size_t>(number(words[axis])) + 1;
        edges.push_back(number(words[3 + axis]));
        while (edges.size() < edge_count) {
            const std::string_view word = words.at(at++);
            const std::size_t star = word.find('*');
            const double repeats = star == std::string_view::npos ? 1 : number(word.substr(0, star));
            const double width = number(star == std::string_view::npos ? word : word.substr(star + 1));
            for (double i = 0; i < repeats; ++i) edges.push_back(edges.back() + (axis == 2 ? -width : width));
        }
        if (edges.size() != edge_count) throw std::runtime_error("the widths exceed the count of cells");
    }
    return mesh;
}

/// One value a cell, one to a line.
inline std::vector<double> read_model(std::string_view text)
{
    std::vector<double> values;
    for (const auto & line : words_by_line(text)) {
        if (line.size() != 1) throw std::runtime_error("a model line has other than one value");
        values.push_back(number(line[0]));
    }
    return values;
}

struct Datum {
    double x, y, z;
    std::vector<double> values, errors; ///< one of each per component; a null value is not a number
};

/// Magnetic files begin with two lines on the field, of three numbers each; then the count of data and as many rows.
inline std::vector<Datum> read_observations(std::string_view text)
{
    const auto lines = words_by_line(text);
    const std::size_t header = lines.at(0).size() == 1 ? 0 : 2;
    for (std::size_t i = 0; i < header; ++i)
        if (lines.at(i).size() != 3) throw std::runtime_error("a field line without three numbers");
    const double count = number(lines.at(header).at(0));
    std::vector<Datum> data;
    for (std::size_t row = header + 1; row < lines.size(); ++row) {
        const auto & words = lines[row];
        if (words.size() < 5) throw std::runtime_error("a row without a value and its error");
        Datum datum{ number(words[0]), number(words[1]), number(words[2]), {}, {} };
        for (std::size_t at = 3; at + 1 < words.size(); at += 2) {
            datum.values.push_back(words[at] == "*" ? std::numeric_limits<double>::quiet_NaN() : number(words[at]));
            datum.errors.push_back(number(words[at + 1]));
        }
        data.push_back(datum);
    }
    if (static_cast<double>(data.size()) != count) throw std::runtime_error("the count is not that of the rows");
    return data;
}

enum class Ground : std::size_t { mesh_surface = 2, terrain = 3 };

/// The elevation of the ground in each cell, x fastest, from rows of x, y, top of the highest solid cell and terrain. A draped
/// mesh has rows for its corner points first.
inline std::vector<double> read_ground(std::string_view text, const Mesh & mesh, Ground kind)
{
    const auto lines = words_by_line(text);
    const std::size_t cells = (mesh.x.size() - 1) * (mesh.y.size() - 1);
    const std::size_t corners = mesh.x.size() * mesh.y.size();
    const auto count = static_cast<std::size_t>(number(lines.at(0).at(0)));
    if (lines.size() != count + 1) throw std::runtime_error("the count is not that of the rows");
    if (count != cells && count != cells + corners) throw std::runtime_error("the rows are not those of the mesh");
    std::vector<double> ground;
    for (std::size_t row = lines.size() - cells; row < lines.size(); ++row)
        ground.push_back(number(lines[row].at(static_cast<std::size_t>(kind))));
    return ground;
}

/// The cell between ascending edges that holds a position; the count of cells when none does.
inline std::size_t cell_at(const std::vector<double> & edges, double position)
{
    for (std::size_t i = 0; i + 1 < edges.size(); ++i)
        if (edges[i] <= position && position < edges[i + 1]) return i;
    return edges.size() - 1;
}

}
