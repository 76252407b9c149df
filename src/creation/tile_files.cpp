#include "creation/tile_files.h"

#include "creation/solver_inputs.h"
#include "creation/tile_solver.h"
#include "support/fault.h"
#include "support/paths.h"

namespace {

namespace fs = std::filesystem;

constexpr Tile first_tile = { 1, 1 };

/// What the sensitivity step of a tile reads besides mesh and data.
std::vector<std::string> sensitivity_input_names(const Solver & solver)
{
    if (solver.form == InputForm::first) return {}; // has its names on the command line
    std::vector<std::string> names = { std::string(solver.sensitivity) + ".inp" };
    if (*solver.weight_input) names.emplace_back(solver.weight_input);
    return names;
}

void copy_files(const std::vector<std::string> & names, const std::string & from, const std::string & to)
{
    for (const std::string & name : names) copy_over(from + name, to + name);
}

}

std::string tile_folder(const Creation & creation, Tile tile) { return creation.folder + tile_name(tile) + "\\"; }

void prepare_tile_folder(const Creation & creation, Tile tile)
{
    const std::string folder = tile_folder(creation, tile);
    make_folder_path(folder);
    const Solver & solver = creation.solver();
    if (solver.form == InputForm::own) delete_file(folder + solver.inversion + tile_class(creation).iteration);
}

void write_tile_inputs(const Creation & creation, Tile tile)
{
    const Solver & solver = creation.solver();
    const std::string folder = tile_folder(creation, tile);
    copy_files(sensitivity_input_names(solver), creation.folder, folder);

    const std::string input = solver.inversion + std::string(".inp"), restart = solver.inversion + std::string(".restart");
    if (tile != first_tile) {
        copy_files({ input, restart }, tile_folder(creation, first_tile), folder);
        return;
    }
    write_lines(folder + input, tile_input_lines(creation, SolverStart::fresh));
    write_lines(folder + restart, tile_input_lines(creation, SolverStart::restart));
}

void copy_over(const std::string & from, const std::string & to)
{
    std::error_code error;
    const fs::path source = host_path(from), target = host_path(to);
    if (fs::equivalent(source, target, error)) return;
    if (!fs::exists(source, error)) throw FileFault("cannot copy the file", from, "it does not exist");
    delete_file(to);
    fs::copy_file(source, target, fs::copy_options::overwrite_existing, error);
    if (error) throw FileFault("cannot copy to " + to + " the file", from, error.message());
}
