#include "model/model_values.h"

#include "model/value_order.h"
#include "model/value_text.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/ordered_work.h"
#include "support/text.h"
#include "support/text_file.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstring>
#include <iterator>
#include <limits>
#include <optional>

namespace {

constexpr std::int32_t layered_format = 1; // a mesh of earth, sea and air
constexpr std::size_t binary_head = 4;     // "UBC" and the type
// A file has no values of their own for cells of air and sea. Without any earth nothing in it bears out more of them.
constexpr std::int64_t most_cells_unasked = std::int64_t{ 1 } << 24;

struct Reading {
    const std::string & path;
    std::int32_t order;
    float model_null;
    const UbcMesh & mesh;
    Host & host;
    const ValueShares & shares;
    TextFile & file;
    std::string_view text = file.all();
};

bool is_binary(std::string_view text)
{
    return text.size() >= binary_head && text.starts_with("UBC") && text[3] >= 1 && text[3] <= 8;
}

/// Whether a file with room for `places` values can hold all of a layout. Nothing here overflows, whatever the mesh.
bool has_room_for(const ValueLayout & layout, std::size_t places)
{
    auto left = static_cast<std::int64_t>(places);
    for (const std::int64_t count : layout.count) {
        if (count == 0) return true;
        left /= count;
    }
    return left > 0;
}

List<float> list_for_cells(const UbcMesh & mesh)
{
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max(); // what a list counts
    const std::int64_t layer = std::int64_t{ mesh.cells_x() } * mesh.cells_y();
    if (layer > most / std::max(mesh.cells_z(), 1)) throw OverflowFault("the mesh has too many cells for a model");
    return List<float>(layer * mesh.cells_z());
}

Status end_of_file(const Reading & reading)
{
    reading.host.dialogs.message("Unexpected end of file was encountered while reading the model file");
    return Status::bad;
}

/// The same for text. Two of the orders tell it as they tell of any other fault.
Status end_of_text(const Reading & reading)
{
    if (reading.mesh.mesh_format != layered_format && reading.order >= 4)
        throw FileFault("cannot read", reading.path, "it ends before every cell has its value");
    return end_of_file(reading);
}

[[noreturn]] void refuse(const Reading & reading, std::string_view what)
{
    constexpr std::size_t most_shown = 40;
    const std::string_view before = reading.text.substr(0, static_cast<std::size_t>(what.data() - reading.text.data()));
    std::int64_t line = 1;
    for (std::size_t i = 0; i < before.size(); ++i)
        line += before[i] == '\n' || (before[i] == '\r' && reading.text[i + 1] != '\n') ? 1 : 0;
    std::string shown;
    std::ranges::copy_if(what.substr(0, most_shown), std::back_inserter(shown), [](char c) { return c >= ' ' && c <= '~'; });
    throw Fault("\"" + shown + "\" in line " + std::to_string(line) + " of " + reading.path +
                " is not a number that a model can hold");
}

Status read_binary(const Reading & reading, List<float> & values)
{
    static_assert(std::endian::native == std::endian::little, "the file is little-endian");
    const std::string_view body = reading.text.substr(binary_head);
    constexpr std::int32_t in_memory_order = 2;
    if (!has_room_for(layout_of_order(in_memory_order, reading.mesh), body.size() / sizeof(float))) return end_of_file(reading);
    values = list_for_cells(reading.mesh);
    Percentage percentage(reading.host.progress, 1);
    std::memcpy(values.items().data(), body.data(), values.items().size_bytes());
    percentage.report(1);
    return Status::good;
}

/// Reads the parts of a text with `read_part` and puts the values to their places; false when they are too few.
template <class ReadPart>
bool read_parts(const Reading & reading, const std::vector<std::string_view> & parts, const ValueLayout & layout,
                std::span<float> values, const ReadPart & read_part)
{
    ValuePlacer placer(layout, values);
    Percentage percentage(reading.host.progress, layout.size());
    std::atomic<bool> complete = placer.complete();
    work_in_order<TextValues>(
        parts.size(), reading.shares.threads == 0 ? working_threads() : reading.shares.threads,
        [&](std::size_t number, TextValues & found) {
            if (!complete) read_part(parts[number], found);
        },
        [&](std::size_t, const TextValues & found) {
            if (complete) return;
            placer.take(found.values());
            percentage.report(placer.taken());
            if (placer.complete())
                complete = true;
            else if (found.faulty())
                refuse(reading, found.fault);
        });
    return placer.complete();
}

/// Fills whole layers with the next value of a line. Layers that are not there need no value.
void fill_layers(const Reading & reading, std::string_view & line, std::span<float> layers)
{
    const std::string_view token = next_token(line);
    if (layers.empty()) return;
    if (!is_numeric(token))
        throw FileFault("cannot read", reading.path, "\"" + std::string(token) + "\" is no value for the sea or the air");
    std::ranges::fill(layers, to_f32(leading_number(token)));
}

void check_layers_without_earth(const UbcMesh & mesh)
{
    const double cells = double{ 1 } * mesh.cells_x() * mesh.cells_y() * mesh.cells_z();
    if (cells > most_cells_unasked)
        throw Fault("the mesh has " + general_text(cells) +
                    " cells of air and sea and none of earth, so it cannot carry a model");
}

Status read_layered_text(const Reading & reading, List<float> & values)
{
    const ValueLayout earth = layout_of_earth(reading.mesh);
    if (earth.size() == 0) check_layers_without_earth(reading.mesh);
    std::string first;
    const bool begun = read_data_line(reading.file, first);
    const std::string_view rest = reading.file.rest();
    if (!begun || !has_room_for(earth, (rest.size() + 1) / 2)) return end_of_text(reading);

    List<float> cells = list_for_cells(reading.mesh);
    const auto air = static_cast<std::size_t>(reading.mesh.air_cells * earth.step[0]);
    std::string_view line = first;
    fill_layers(reading, line, cells.items().subspan(air, static_cast<std::size_t>(earth.start) - air));
    fill_layers(reading, line, cells.items().first(air));
    const auto parts = parts_of_values(rest, reading.shares.part_size);
    if (!read_parts(reading, parts, earth, cells.items(), read_plain_values)) return end_of_text(reading);
    values = std::move(cells);
    return Status::good;
}

/// How many components the lines of a text have; nothing when it is not one of components.
std::optional<std::int32_t> component_count(const Reading & reading)
{
    if (reading.mesh.mesh_format != 0) return std::nullopt;
    std::string line;
    read_text_line(reading.file, line);
    const std::string_view first = trim(line);
    if (!first.starts_with('(') || !first.ends_with(')')) return std::nullopt;
    return static_cast<std::int32_t>(std::ranges::count(first, ',')) + 1;
}

Status choose_component(const Reading & reading, std::int32_t count, std::int32_t & component)
{
    Dialogs & dialogs = reading.host.dialogs;
    if (reading.order == 4) {
        dialogs.message("The specified file is a multicomponent model and this format is not supported");
        return Status::bad;
    }
    const auto answer = dialogs.input("Read model component",
                                      "The specified file is a multicomponent model, select which component you require (1," +
                                          std::to_string(count) + ")",
                                      "1");
    if (!answer || !is_numeric(*answer)) return Status::bad;
    const double number = leading_number(*answer);
    if (!(number >= 1 && number <= count)) {
        dialogs.message("The selecetd component is invalid");
        return Status::bad;
    }
    component = round_to_count(number);
    return Status::good;
}

Status read_text(const Reading & reading, List<float> & values)
{
    const ValueLayout layout = layout_of_order(reading.order, reading.mesh);
    std::int32_t component = 0;
    const auto components = component_count(reading);
    if (components && choose_component(reading, *components, component) != Status::good) return Status::bad;
    if (!has_room_for(layout, (reading.text.size() + 1) / 2)) return end_of_text(reading);

    List<float> cells = list_for_cells(reading.mesh);
    const std::size_t size = reading.shares.part_size;
    const bool enough = components
                            ? read_parts(reading, parts_of_lines(reading.text, size), layout, cells.items(),
                                         [&](std::string_view part, TextValues & found) {
                                             read_component(part, component, reading.model_null, found);
                                         })
                            : read_parts(reading, parts_of_values(reading.text, size), layout, cells.items(), read_plain_values);
    if (!enough) return end_of_text(reading);
    values = std::move(cells);
    return Status::good;
}

}

Status read_model_values(const std::string & path, std::int32_t order, float model_null, const UbcMesh & mesh,
                         List<float> & values, Host & host, const ValueShares & shares)
{
    try {
        TextFile file(path);
        const Reading reading{ path, order, model_null, mesh, host, shares, file };
        const auto read = is_binary(reading.text)              ? &read_binary
                          : mesh.mesh_format == layered_format ? &read_layered_text
                                                               : &read_text;
        const Status status = read(reading, values);
        if (status == Status::good) file.verify();
        return status;
    } catch (const std::exception & fault) {
        host.dialogs.message(std::string("An error occurred while reading the model file : \r") + fault.what());
        return Status::bad;
    }
}
