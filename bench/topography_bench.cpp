// A million topography points onto 512 x 512 cells, beside a plain triangulation of the same library.
//
// This program also links CGAL itself. Its peers, on like points: peers/topography.py.

#include "data/topography.h"
#include "rules/silent_host.h"
#include "support/paths.h"

#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>
#include <benchmark/benchmark.h>
#include <cmath>
#include <filesystem>
#include <random>
#include <utility>
#include <vector>

namespace {

constexpr double west = 430000, south = 7200000, extent = 12800;
constexpr std::int32_t cells = 512;

UbcMesh bench_mesh()
{
    UbcMesh mesh;
    mesh.total_cells = { cells, cells, 4 };
    const double size = extent / cells;
    for (std::int32_t i = 0; i <= cells; ++i) {
        mesh.nodes_x.push_back(west + i * size);
        mesh.nodes_y.push_back(south + i * size);
    }
    for (std::int32_t i = 0; i < cells; ++i) {
        mesh.centres_x.push_back(west + (i + 0.5) * size);
        mesh.centres_y.push_back(south + (i + 0.5) * size);
    }
    mesh.nodes_z = { 400, 350, 300, 250, 200 };
    return mesh;
}

InversionDefinition magnetic_definition()
{
    InversionDefinition definition;
    definition.inversion_method = 3;
    return definition;
}

enum Layout { scattered, lattice, uneven_lattice };

/// side * side points over the mesh. The uneven lattice has steps that no double holds.
ObservedData bench_points(int side, Layout layout)
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> share(0, 1);
    const double step = layout == lattice ? std::floor(extent / side * 4) / 4 : std::floor(extent / side * 10 - 1) / 10;
    ObservedData data;
    for (int i = 0; i < side * side; ++i) {
        const double x = layout == scattered ? extent * share(random) : 0.1 + step * (i % side);
        const double y = layout == scattered ? extent * share(random) : 0.1 + step * (i / side);
        const double shift = layout == lattice ? -0.1 : 0;
        data.xyz[0].push_back(west + x + shift);
        data.xyz[1].push_back(south + y + shift);
        data.xyz[2].push_back(300 + 50 * std::sin(x / 900) * std::cos(y / 700));
    }
    data.point_count = data.xyz[0].size();
    return data;
}

void topography(benchmark::State & state, Layout layout)
{
    const ObservedData points = bench_points(static_cast<int>(state.range(0)), layout);
    const UbcMesh mesh = bench_mesh();
    const InversionDefinition definition = magnetic_definition();
    SilentHost silent;
    for (auto _ : state) {
        TopoSurface topo;
        if (interpolate_topo_points(points, definition, mesh, topo, silent.host) != Status::good) state.SkipWithError("refused");
        benchmark::DoNotOptimize(topo.cell_topo.items().data());
    }
}

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using VertexBase = CGAL::Triangulation_vertex_base_with_info_2<double, Kernel>;
using Delaunay = CGAL::Delaunay_triangulation_2<Kernel, CGAL::Triangulation_data_structure_2<VertexBase>>;

float interpolated(const Delaunay & delaunay, double x, double y, Delaunay::Face_handle & face)
{
    Delaunay::Locate_type kind;
    int corner = 0;
    face = delaunay.locate({ x, y }, kind, corner, face);
    if (kind == Delaunay::OUTSIDE_CONVEX_HULL) return -1e32F;
    const auto &a = *face->vertex(0), &b = *face->vertex(1), &c = *face->vertex(2);
    const double bx = b.point().x() - a.point().x(), by = b.point().y() - a.point().y();
    const double cx = c.point().x() - a.point().x(), cy = c.point().y() - a.point().y();
    x -= a.point().x();
    y -= a.point().y();
    const double area = bx * cy - cx * by;
    return static_cast<float>(a.info() + (x * cy - cx * y) / area * (b.info() - a.info()) +
                              (bx * y - x * by) / area * (c.info() - a.info()));
}

/// The floor: points in, cells out, nothing else.
void cgal_alone(benchmark::State & state, Layout layout)
{
    const ObservedData points = bench_points(static_cast<int>(state.range(0)), layout);
    const UbcMesh mesh = bench_mesh();
    std::vector<std::pair<Kernel::Point_2, double>> places;
    for (std::int32_t i = 1; i <= points.point_count; ++i)
        places.push_back({ { points.xyz[0][i], points.xyz[1][i] }, points.xyz[2][i] });
    for (auto _ : state) {
        const Delaunay delaunay(places.begin(), places.end());
        std::vector<float> values;
        Delaunay::Face_handle face;
        for (const double y : mesh.centres_y.items())
            for (const double x : mesh.centres_x.items()) values.push_back(interpolated(delaunay, x, y, face));
        benchmark::DoNotOptimize(values.data());
    }
}

void topo_file(benchmark::State & state)
{
    const UbcMesh mesh = bench_mesh();
    TopoSurface topo;
    topo.point_count = 1;
    topo.cell_topo.assign(cells * cells, 312.3456F);
    topo.air_cells.assign(cells * cells, 2);
    SilentHost silent;
    const InversionDefinition definition = magnetic_definition();
    const auto path = std::filesystem::temp_directory_path() / "topography_bench_topo.dat";
    for (auto _ : state) write_topo_file(definition_path(path), definition, mesh, topo, whole_topography(mesh), silent.host);
    std::filesystem::remove(path);
}

}

// The argument is the side of a square of points: 250 000, a million, 4 million.
BENCHMARK_CAPTURE(topography, scattered, scattered)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(topography, lattice, lattice)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(topography, uneven_lattice, uneven_lattice)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cgal_alone, scattered, scattered)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(cgal_alone, lattice, lattice)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(topo_file)->Unit(benchmark::kMillisecond);
