// A mesh of 1000 x 1000 cells takes its readings from three grids of 20,000 x 20,000 cells, of which it covers a sixty-fourth.
// The floor reads the part it covers from each file once and does the arithmetic of the samples in one pass.
//
// The grids are made once, in the temporary folder, where peers/grid.py finds them: ERMapper rasters with holes but for the part
// that is read.

#include "data/observed_processing.h"
#include "fakes/recorded_host.h"
#include "support/fault.h"
#include "support/file_bytes.h"
#include "support/numbers.h"
#include "support/paths.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr double grid_cell = 10, mesh_cell = 25; // metres
constexpr std::int32_t mesh_cells = 1000, grids = 3;
constexpr double west = 400000, north = 7300000;           // of the grids
constexpr double mesh_west = 480000, mesh_north = 7220000; // of the mesh
constexpr std::int32_t first = 7980, covered = 2540;       // columns, and rows from the north, that a mesh may need
constexpr double slope_x = 0.0125, slope_y = -0.03125;     // the values make a plane

double plane(double x, double y) { return slope_x * (x - mesh_west) + slope_y * (y - mesh_north); }

std::string ers_header(std::int32_t size)
{
    const std::string cells = general_text(size);
    return "DatasetHeader Begin\n\tVersion = \"6.0\"\n\tDataSetType = ERStorage\n\tDataType = Raster\n\tByteOrder = LSBFirst\n"
           "\tCoordinateSpace Begin\n\t\tDatum = \"RAW\"\n\t\tProjection = \"RAW\"\n\t\tCoordinateType = EN\n"
           "\t\tRotation = 0:0:0.0\n\tCoordinateSpace End\n\tRasterInfo Begin\n\t\tCellType = IEEE4ByteReal\n"
           "\t\tNullCellValue = -99999\n\t\tCellInfo Begin\n\t\t\tXdimension = 10\n\t\t\tYdimension = 10\n\t\tCellInfo End\n"
           "\t\tNrOfLines = " +
           cells + "\n\t\tNrOfCellsPerLine = " + cells +
           "\n\t\tRegistrationCoord Begin\n"
           "\t\t\tEastings = 400000\n\t\t\tNorthings = 7300000\n\t\tRegistrationCoord End\n\t\tNrOfBands = 1\n"
           "\tRasterInfo End\nDatasetHeader End\n";
}

fs::path raw_path(std::int32_t size, std::int32_t grid)
{
    return fs::temp_directory_path() / "grid_bench" / (std::to_string(size) + "_" + std::to_string(grid));
}

void make_grid(std::int32_t size, std::int32_t grid)
{
    const fs::path raw = raw_path(size, grid);
    const auto bytes = static_cast<std::uintmax_t>(size) * static_cast<std::uintmax_t>(size) * sizeof(float);
    std::error_code none;
    if (fs::file_size(raw, none) == bytes && fs::exists(raw.string() + ".ers")) return;
    fs::create_directories(raw.parent_path());
    std::ofstream(raw, std::ios::binary).close();
    fs::resize_file(raw, bytes);
    std::fstream file(raw, std::ios::binary | std::ios::in | std::ios::out);
    std::vector<float> row(covered);
    for (std::int32_t y = first; y < first + covered; ++y) {
        for (std::int32_t x = 0; x < covered; ++x)
            row[static_cast<std::size_t>(x)] =
                static_cast<float>(grid + plane(west + (first + x + 0.5) * grid_cell, north - (y + 0.5) * grid_cell));
        file.seekp((std::int64_t{ y } * size + first) * static_cast<std::int64_t>(sizeof(float)));
        file.write(reinterpret_cast<const char *>(row.data()), covered * sizeof(float));
    }
    file.close();
    if (!file) throw Fault("cannot write " + raw.string());
    std::ofstream(raw.string() + ".ers") << ers_header(size);
}

UbcMesh wide_mesh()
{
    UbcMesh mesh;
    mesh.total_cells = { mesh_cells, mesh_cells, 1 };
    mesh.nodes_z = { 100, 75 };
    for (std::int32_t i = 0; i <= mesh_cells; ++i) {
        mesh.nodes_x.push_back(mesh_west + mesh_cell * i);
        mesh.nodes_y.push_back(mesh_north - mesh_cell * (mesh_cells - i));
    }
    for (std::int32_t i = 1; i <= mesh_cells; ++i) {
        mesh.centres_x.push_back(mesh.nodes_x[i] + mesh_cell / 2);
        mesh.centres_y.push_back(mesh.nodes_y[i] + mesh_cell / 2);
    }
    return mesh;
}

InversionDefinition definition_for(std::int32_t size)
{
    InversionDefinition definition;
    definition.data_file_type = 1;
    definition.obs_data_type_count = grids;
    definition.topo_type = 1;
    definition.sensor_height_type = 1;
    definition.add_padding_cells = 0;
    for (std::int32_t grid = 0; grid < grids; ++grid) {
        make_grid(size, grid);
        definition.data_file.at(static_cast<std::size_t>(2 + grid)) = definition_path(raw_path(size, grid).string() + ".ers");
    }
    return definition;
}

/// The sum of what lies off the planes.
double error_of(const UbcMesh & mesh, const List<float> & values, double offset)
{
    double error = 0;
    for (std::int32_t iy = 1; iy <= mesh_cells; ++iy)
        for (std::int32_t ix = 1; ix <= mesh_cells; ++ix)
            error += std::abs(values[(iy - std::int64_t{ 1 }) * mesh_cells + ix] - offset -
                              plane(mesh.centres_x[ix], mesh.centres_y[iy]));
    return error / (double{ 1 } * mesh_cells * mesh_cells);
}

void take_readings(benchmark::State & state, std::int32_t size)
{
    const InversionDefinition definition = definition_for(size);
    const UbcMesh mesh = wide_mesh();
    const TopoSurface none;
    ObservedReadings readings;
    for (auto _ : state) {
        RecordedHost quiet;
        if (process_inversion_data(definition, mesh, none, readings, quiet.host) != Status::good)
            return state.SkipWithError(quiet.dialogs.messages.at(0).c_str());
    }
    if (!(error_of(mesh, readings.selected.value_3, 2) < 1e-4)) state.SkipWithError("the samples are wrong");
}

void ours(benchmark::State & state) { take_readings(state, 20000); }
void ours_quarter_of_the_file(benchmark::State & state) { take_readings(state, 10600); }

/// The part of a raw file that the mesh covers.
std::vector<float> read_part(std::int32_t grid)
{
    constexpr std::size_t row_bytes = covered * sizeof(float);
    std::vector<float> part(std::size_t{ covered } * covered);
    std::ifstream file(raw_path(20000, grid), std::ios::binary);
    for (std::int32_t row = 0; row < covered; ++row) {
        file.seekg((std::int64_t{ first + row } * 20000 + first) * static_cast<std::int64_t>(sizeof(float)));
        file.read(reinterpret_cast<char *>(part.data()) + static_cast<std::size_t>(row) * row_bytes, row_bytes);
    }
    return part;
}

void sample_part(const std::vector<float> & part, const UbcMesh & mesh, List<float> & values)
{
    const auto out = values.items();
    std::size_t cell = 0;
    for (const double y : mesh.centres_y.items()) {
        const double row = (north - y) / grid_cell - 0.5 - first;
        const double row_floor = std::floor(row), down = row - row_floor;
        const float * const upper = part.data() + static_cast<std::size_t>(row_floor) * covered;
        for (const double x : mesh.centres_x.items()) {
            const double column = (x - west) / grid_cell - 0.5 - first;
            const double column_floor = std::floor(column), right = column - column_floor;
            const float * const at = upper + static_cast<std::size_t>(column_floor);
            const double above = at[0] + (static_cast<double>(at[1]) - at[0]) * right;
            const double below = at[covered] + (static_cast<double>(at[covered + 1]) - at[covered]) * right;
            out[cell++] = static_cast<float>(above + (below - above) * down);
        }
    }
}

void floor(benchmark::State & state)
{
    const UbcMesh mesh = wide_mesh();
    for (std::int32_t grid = 0; grid < grids; ++grid) make_grid(20000, grid);
    List<float> values(std::int64_t{ mesh_cells } * mesh_cells);
    for (auto _ : state)
        for (std::int32_t grid = 0; grid < grids; ++grid) {
            sample_part(read_part(grid), mesh, values);
            benchmark::DoNotOptimize(values.items().data());
        }
    if (!(error_of(mesh, values, 2) < 1e-4)) state.SkipWithError("the samples are wrong");
}

}

BENCHMARK(ours)->Unit(benchmark::kMillisecond);
BENCHMARK(ours_quarter_of_the_file)->Unit(benchmark::kMillisecond);
BENCHMARK(floor)->Unit(benchmark::kMillisecond);
