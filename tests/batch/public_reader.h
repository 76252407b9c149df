#pragma once

#include "fakes/case_table.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <sstream>

// The mesh, model and observation files as their public descriptions have them, read by means that share nothing with the
// program under test. Anything out of form throws std::runtime_error or std::out_of_range.

namespace public_format {

inline void require(bool holds, const char * words)
{
    if (!holds) throw std::runtime_error(words);
}

/// The words of each line; line ends are CR LF, or LF alone.
inline std::vector<std::vector<std::string>> words_by_line(const std::string & text)
{
    std::vector<std::vector<std::string>> lines;
    std::istringstream file(text);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        lines.emplace_back(std::istream_iterator<std::string>(words), std::istream_iterator<std::string>());
    }
    return lines;
}

inline double number(const std::string & word) { return number_in<double>(word); }

/// Cell edges: x and y ascending from the south-west corner, z descending from the top.
struct Mesh {
    std::array<std::vector<double>, 3> edges;
    std::size_t count(std::size_t axis) const { return edges[axis].size() - 1; }
    std::size_t cells() const { return count(0) * count(1) * count(2); }
};

/// Three counts, the top south-west corner, then the widths of each axis as numbers or as count*width. What may follow the
/// widths is left alone.
inline Mesh read_mesh(const std::string & text)
{
    std::vector<std::string> words;
    for (const auto & line : words_by_line(text)) words.insert(words.end(), line.begin(), line.end());
    Mesh mesh;
    std::size_t at = 6;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        std::vector<double> & edges = mesh.edges[axis];
        const auto edge_count = static_cast<std::size_t>(number(words.at(axis))) + 1;
        edges.push_back(number(words.at(3 + axis)));
        while (edges.size() < edge_count) {
            const std::string & word = words.at(at++);
            const std::size_t star = word.find('*'); // npos + 1 is the start of the word
            const double width = number(word.substr(star + 1));
            for (double left = star == word.npos ? 1 : number(word.substr(0, star)); left > 0; --left)
                edges.push_back(edges.back() + (axis == 2 ? -width : width));
        }
        require(edges.size() == edge_count, "the widths exceed the count of cells");
    }
    return mesh;
}

/// One value a cell, one to a line.
inline std::vector<double> read_model(const std::string & text)
{
    std::vector<double> values;
    for (const auto & line : words_by_line(text)) {
        require(line.size() == 1, "a model line has other than one value");
        values.push_back(number(line[0]));
    }
    return values;
}

struct Datum {
    double x, y, z;
    std::vector<double> values, errors; ///< one of each per component; a null value is not a number
};

/// Magnetic files begin with two lines on the field, of three numbers each; then the count of data and as many rows.
inline std::vector<Datum> read_observations(const std::string & text)
{
    const auto lines = words_by_line(text);
    const std::size_t header = lines.at(0).size() == 1 ? 0 : 2;
    for (std::size_t i = 0; i < header; ++i) require(lines.at(i).size() == 3, "a field line without three numbers");
    std::vector<Datum> data;
    for (std::size_t row = header + 1; row < lines.size(); ++row) {
        const auto & words = lines[row];
        require(words.size() >= 5, "a row without a value and its error");
        Datum datum{ number(words[0]), number(words[1]), number(words[2]), {}, {} };
        for (std::size_t at = 3; at + 1 < words.size(); at += 2) {
            datum.values.push_back(words[at] == "*" ? std::numeric_limits<double>::quiet_NaN() : number(words[at]));
            datum.errors.push_back(number(words[at + 1]));
        }
        data.push_back(datum);
    }
    require(static_cast<double>(data.size()) == number(lines.at(header).at(0)), "the count is not that of the rows");
    return data;
}

/// The elevation of the ground in each cell, x fastest, from rows of x, y and elevations, of which `column` holds the one wanted:
/// 2 the top of the highest solid cell, 3 the terrain. A draped mesh has rows for its corner points first.
inline std::vector<double> read_ground(const std::string & text, const Mesh & mesh, std::size_t column)
{
    const auto lines = words_by_line(text);
    const std::size_t cells = mesh.count(0) * mesh.count(1);
    const std::size_t count = lines.size() - 1;
    require(number(lines.at(0).at(0)) == static_cast<double>(count), "the count is not that of the rows");
    require(count == cells || count == cells + mesh.edges[0].size() * mesh.edges[1].size(), "the rows are not those of the mesh");
    std::vector<double> ground;
    for (std::size_t row = lines.size() - cells; row < lines.size(); ++row) ground.push_back(number(lines[row].at(column)));
    return ground;
}

/// The cell between ascending edges that holds a position; beyond all cells when none does.
inline std::size_t cell_at(const std::vector<double> & edges, double position)
{
    return static_cast<std::size_t>(std::ranges::upper_bound(edges, position) - edges.begin()) - 1;
}

}
