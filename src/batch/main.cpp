#include "app/file_settings.h"
#include "app/system_launcher.h"
#include "batch/commands.h"
#include "batch/terminal_host.h"
#include "support/fault.h"
#include "support/paths.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <string_view>

namespace {

constexpr int exit_bad = 1;
constexpr int exit_usage = 2;
constexpr int exit_interrupted = 130;

/// A path of the command line, made absolute before any command changes the current folder.
std::string absolute_definition_path(const std::string & host)
{
    if (host.empty()) throw Fault("a path on the command line is empty");
    return definition_path(std::filesystem::absolute(std::filesystem::path(host)).lexically_normal());
}

int exit_status(Status status, Dialogs & dialogs)
{
    if (status == Status::stopped) {
        dialogs.message("Stopped. What had been written stays, and is not complete");
        return exit_interrupted;
    }
    return status == Status::good ? 0 : exit_bad;
}

/// The command line: its parser, the values that it fills, and what to run.
struct CommandLine {
    CLI::App parser{ "Prepares three-dimensional inversions of magnetic and gravity data from the command line.",
                     "zeb_qvinv3d_batch" };
    std::function<Status(Host &)> run;
    bool yes = false;
    std::string debug_log;

    CreateOptions create;
    std::string tile_order;
    std::vector<std::string> skip_tiles;
    SaveOptions save;
    std::string check;
    BaseFiles check_base;
    std::string grid;
    std::string mesh, model;
    LimitsOptions limits;
    StartOptions start;
    TransformOptions transform;
    IgrfTexts igrf;
};

/// Numbers of at most `digits` digits with commas between, as many as `count`.
bool is_number_list(std::string_view text, std::size_t count, std::size_t digits)
{
    for (std::size_t i = 1; i <= count; ++i) {
        const std::string_view number = text.substr(0, text.find(','));
        if (number.empty() || number.size() > digits || number.find_first_not_of("0123456789") != number.npos) return false;
        text.remove_prefix(number.size());
        if (text.empty() != (i == count)) return false;
        if (i < count) text.remove_prefix(1);
    }
    return true;
}

std::string tile_fault(const std::string & text)
{
    return is_number_list(text, 2, 4) ? std::string() : "must be a column and a row, as in 02,03";
}

std::string order_fault(const std::string & text)
{
    const bool good = is_number_list(text, 3, 1) && text.find_first_not_of("01,") == text.npos;
    return good ? std::string() : "must be three of 0 and 1, as in 0,1,0";
}

/// "02,03": column 2, row 3.
Tile tile_of(const std::string & text)
{
    const std::size_t comma = text.find(',');
    return { std::stoi(text.substr(0, comma)), std::stoi(text.substr(comma + 1)) };
}

CLI::Option * add_base(CLI::App * command, BaseFiles & base)
{
    CLI::Option * const mesh = command->add_option("--base-mesh", base.mesh, "mesh to refine in tiles");
    command->add_option("--base-model", base.model, "model on that mesh")->needs(mesh);
    return mesh;
}

BaseFiles absolute_files(const BaseFiles & base)
{
    const auto absolute = [](const std::string & path) { return path.empty() ? path : absolute_definition_path(path); };
    return { absolute(base.mesh), absolute(base.model) };
}

void take_tile_options(CommandLine & line)
{
    for (const std::string & text : line.skip_tiles) line.create.skipped_tiles.push_back(tile_of(text));
    if (line.tile_order.empty()) return;
    line.create.tile_order = { line.tile_order[0] - '0', line.tile_order[2] - '0', line.tile_order[4] - '0' };
}

void add_create(CommandLine & line)
{
    CLI::App * const command = line.parser.add_subcommand("create", "Write the inversion folder of a definition");
    command->add_option("DEFINITION", line.create.definition, "definition file")->required();
    command->add_option("--output", line.create.output, "folder of the inversion")->required();
    command->add_option("--mode", line.create.mode, "what to write")
        ->check(CLI::IsMember({ "all", "parameters", "variation", "variation-data" }))
        ->capture_default_str();
    CLI::Option * const mesh = add_base(command, line.create.base);
    command->add_option("--skip-tile", line.skip_tiles, "tile to leave out: column,row, as in 02,03; may be given again")
        ->needs(mesh)
        ->check(tile_fault)
        ->allow_extra_args(false);
    command
        ->add_option("--tile-order", line.tile_order,
                     "order of the tiles: by column or row, bottom or top first, left or right first; 0 or 1 each, as in 0,1,0")
        ->needs(mesh)
        ->check(order_fault);
    command->add_flag("--yes", line.yes, "answer every question with Yes");
    command->callback([&line] {
        line.run = [&line](Host & host) {
            line.create.definition = absolute_definition_path(line.create.definition);
            line.create.output = absolute_definition_path(line.create.output);
            line.create.base = absolute_files(line.create.base);
            take_tile_options(line);
            return create_command(line.create, host);
        };
    });
}

void add_check(CommandLine & line)
{
    CLI::App * const command = line.parser.add_subcommand("check", "Check a definition; prints valid when it passes");
    command->add_option("DEFINITION", line.check, "definition file")->required();
    add_base(command, line.check_base);
    command->add_flag("--yes", line.yes, "answer every question with Yes");
    command->callback([&line] {
        line.run = [&line](Host & host) {
            return check_command(absolute_definition_path(line.check), absolute_files(line.check_base), host);
        };
    });
}

void add_save(CommandLine & line)
{
    CLI::App * const command =
        line.parser.add_subcommand("save", "Check a definition, or a part of it put into another, and save it");
    command->add_option("DEFINITION", line.save.definition, "definition file")->required();
    command->add_option("--output", line.save.output, "definition file to write")->required();
    const std::map<std::string, Selection> parts = { { "all", Selection::all },
                                                     { "parameters", Selection::parameters },
                                                     { "data", Selection::observed_data },
                                                     { "topo", Selection::topography },
                                                     { "mesh", Selection::mesh } };
    command->add_option("--select", line.save.selection, "part to take from DEFINITION")
        ->transform(CLI::CheckedTransformer(parts).description("{all,data,mesh,parameters,topo}"))
        ->default_str("all")
        ->type_name("PART");
    command->add_option("--into", line.save.into, "definition file to put that part into");
    command->add_flag("--yes", line.yes, "answer every question with Yes");
    command->callback([&line] {
        line.run = [&line](Host & host) {
            line.save.definition = absolute_definition_path(line.save.definition);
            line.save.output = absolute_definition_path(line.save.output);
            if (!line.save.into.empty()) line.save.into = absolute_definition_path(line.save.into);
            return save_command(line.save, host);
        };
    });
}

void add_limits(CommandLine & line)
{
    CLI::App * const command =
        line.parser.add_subcommand("limits", "Set the mesh limits from the data or the topography, and save");
    command->add_option("DEFINITION", line.limits.definition, "definition file")->required();
    command->add_option("--from", line.limits.from, "where the limits come from")
        ->check(CLI::IsMember({ "data", "topo" }))
        ->required();
    command->add_option("--output", line.limits.output, "definition file to write")->required();
    command->add_flag("--yes", line.yes, "answer every question with Yes");
    command->callback([&line] {
        line.run = [&line](Host & host) {
            line.limits.definition = absolute_definition_path(line.limits.definition);
            line.limits.output = absolute_definition_path(line.limits.output);
            return limits_command(line.limits, host);
        };
    });
}

void add_transform(CommandLine & line)
{
    CLI::App * const command =
        line.parser.add_subcommand("transform", "Transform points (x y [z], one a line) from standard input");
    auto * const source = command->add_option_group("source");
    source->add_option("--crd", line.transform.transform_file, "coordinate transformation file");
    source->add_option("--definition", line.transform.definition, "definition file");
    source->require_option(1);
    command->add_flag("--inverse", line.transform.inverse, "from mesh to data coordinates");
    command->callback([&line] {
        line.run = [&line](Host & host) {
            if (!line.transform.transform_file.empty())
                line.transform.transform_file = absolute_definition_path(line.transform.transform_file);
            if (!line.transform.definition.empty())
                line.transform.definition = absolute_definition_path(line.transform.definition);
            return transform_command(line.transform, host);
        };
    });
}

void add_grid(CommandLine & line)
{
    CLI::App * const command = line.parser.add_subcommand("grid", "Print what a grid file is understood to be");
    command->add_option("FILE", line.grid, "grid, picture or point file")->required();
    command->callback(
        [&line] { line.run = [&line](Host & host) { return grid_command(absolute_definition_path(line.grid), host); }; });
}

void add_model(CommandLine & line)
{
    CLI::App * const command = line.parser.add_subcommand("model", "Print what a model file on a mesh is understood to be");
    command->add_option("MESH", line.mesh, "mesh file")->required();
    command->add_option("MODEL", line.model, "model file")->required();
    command->callback([&line] {
        line.run = [&line](Host & host) {
            return model_command(absolute_definition_path(line.mesh), absolute_definition_path(line.model), host);
        };
    });
}

void add_mesh(CommandLine & line)
{
    CLI::App * const command = line.parser.add_subcommand("mesh", "Print what a mesh file holds");
    command->add_option("FILE", line.mesh, "mesh file")->required();
    command->callback(
        [&line] { line.run = [&line](Host & host) { return mesh_command(absolute_definition_path(line.mesh), host); }; });
}

void add_start(CommandLine & line)
{
    CLI::App * const command =
        line.parser.add_subcommand("start", "Start the run script of an inversion folder, and return while it runs");
    command->add_option("FOLDER", line.start.folder, "folder of the inversion")->required();
    command->add_flag("--variation", line.start.variation, "the folder holds a variation");
    command->add_option("--definition", line.start.definition, "definition file; otherwise inversion.inp of the folder");
    command->callback([&line] {
        line.run = [&line](Host & host) {
            line.start.folder = absolute_definition_path(line.start.folder);
            if (!line.start.definition.empty()) line.start.definition = absolute_definition_path(line.start.definition);
            return start_command(line.start, host);
        };
    });
}

void add_igrf(CommandLine & line)
{
    CLI::App * const command = line.parser.add_subcommand("igrf", "Print the earth's field at a place and date");
    command->add_option("--date", line.igrf.date, "decimal years, or day/month/year")->required();
    command->add_option("--latitude", line.igrf.latitude, "decimal degrees or \"dd mm ss.sss\", with N or S behind or a sign")
        ->required();
    command->add_option("--longitude", line.igrf.longitude, "the same, with E or W")->required();
    command->add_option("--elevation", line.igrf.elevation, "metres above the ellipsoid")->capture_default_str();
    command->callback([&line] { line.run = [&line](Host & host) { return igrf_command(line.igrf, host); }; });
}

int run_command(CommandLine & line)
{
    TerminalProgress progress;
    TerminalDialogs dialogs(progress);
    dialogs.answer_yes = line.yes;
    NoSettings settings;
    FileSettings user_settings; // read only: how runs are started on this computer
    SystemLauncher launcher(user_settings);
    DebugLog debug;
    if (!line.debug_log.empty()) {
        debug.level = 1;
        debug.file = absolute_definition_path(line.debug_log);
    }
    Host host{ dialogs, progress, settings, launcher, debug };
    try {
        const Status status = line.run(host);
        // An earlier flush may have dropped what it could not write; only the stream still knows.
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) throw Fault("cannot write to standard output");
        return exit_status(status, dialogs);
    } catch (const Stopped &) {
        return exit_status(Status::stopped, dialogs);
    } catch (const std::exception & fault) {
        dialogs.message(fault.what());
        return exit_bad;
    }
}

}

// What is thrown before the command runs is a fault of the program, not of its user, and ends it.
// NOLINTNEXTLINE(bugprone-exception-escape)
int main(int argument_count, char ** arguments)
{
    watch_for_interrupt();
    CommandLine line;
    line.parser.set_version_flag("--version", std::string("zeb_qvinv3d_batch ") + PROGRAM_VERSION);
    line.parser.add_option("--debug-log", line.debug_log, "write a numbered log of what is done to this file");
    line.parser.require_subcommand(1);
    add_create(line);
    add_check(line);
    add_save(line);
    add_limits(line);
    add_transform(line);
    add_grid(line);
    add_model(line);
    add_mesh(line);
    add_start(line);
    add_igrf(line);
    try {
        line.parser.parse(argument_count, arguments);
    } catch (const CLI::ParseError & error) {
        return line.parser.exit(error) == 0 ? 0 : exit_usage;
    }
    return run_command(line);
}
