#include "creation/run_scripts.h"

#include "creation/script_words.h"
#include "support/numbers.h"

namespace {

/// "1 NX 1 NY 1 NZ": all cells of the mesh.
std::string whole_mesh(const UbcMesh & mesh)
{
    return "1 " + general_text(mesh.cells_x()) + " 1 " + general_text(mesh.cells_y()) + " 1 " + general_text(mesh.cells_z());
}

std::string extract_line(const Creation & creation, const std::string & model, const char * result, const char * option)
{
    return creation.solver().extract_tool + (" mesh " + script_word(model)) + " " + result + " " + whole_mesh(creation.mesh) +
           option + script_word(creation.definition.rock_property_file);
}

/// Turns the rock index of bounds and reference into values. "Reference only" extracts nothing, not even the reference, although
/// the inversion input then names one.
Lines rock_property_lines(const Creation & creation)
{
    const InversionDefinition & definition = creation.definition;
    if (!creation.in_use.rock_properties || definition.rock_property_application == 1) return {};
    Lines lines;
    if (creation.in_use.bounds)
        lines.push_back(extract_line(creation, definition.model_bounds[0], creation.files().rock_bounds, " -Bounds "));
    if (creation.in_use.reference)
        lines.push_back(extract_line(creation, definition.reference_model, creation.files().rock_reference, " -Ref "));
    return lines;
}

/// A program that takes its input file, of the same name.
std::string program_line(const Creation & creation, const std::string & program)
{
    return program + " " + program + ".inp" + creation.thread_suffix;
}

Lines sensitivity_lines(const Creation & creation)
{
    const Solver & solver = creation.solver();
    if (solver.form == InputForm::first) return { first_solver_sensitivity_line(creation.definition) };
    Lines lines = weight_lines(creation);
    lines.push_back(program_line(creation, solver.sensitivity));
    return lines;
}

std::string inversion_line(const Creation & creation)
{
    return program_line(creation, creation.solver().inversion) + no_fast_form_option(creation);
}

Lines whole_job_lines(const Creation & creation)
{
    Lines lines = rock_property_lines(creation);
    append(lines, sensitivity_lines(creation));
    lines.push_back(inversion_line(creation));
    if (creation.solver().form == InputForm::own) lines.push_back(error_line(creation));
    return lines;
}

/// The weights are formed anew here too.
Lines inversion_lines(const Creation & creation)
{
    Lines lines = weight_lines(creation);
    append(lines, { inversion_line(creation), error_line(creation) });
    return lines;
}

std::vector<Script> cluster_scripts()
{
    return {
        { "run_qvsen3d_cluster.bat", { start_worker_line, R"(qvsen3d_cluster_controller "%~dp0")" } },
        { "run_cluster_inversion.bat", { "call run_qvsen3d_cluster.bat", "call run_qvinv3d.bat" } },
    };
}

std::string script_name(const std::string & job) { return "run_" + job + ".bat"; }

}

std::string error_line(const Creation & creation)
{
    const Solver & solver = creation.solver();
    const std::string prefix = creation.path_prefix();
    const bool parent_data = solver.error_reads_parent_data[static_cast<std::size_t>(creation.mode)];
    return std::string(solver.error_tool) + " " + (parent_data ? prefix : "") + creation.files().observed + " " +
           solver.inversion + ".pre error.dat " + prefix + "mesh";
}

Lines weight_lines(const Creation & creation)
{
    const Solver & solver = creation.solver();
    if (!*solver.weight_input) return {};
    return { std::string("pfweight ") + solver.weight_input + creation.thread_suffix };
}

std::string first_solver_sensitivity_line(const InversionDefinition & definition)
{
    return definition.topo_type == 0 ? "gzsen3d mesh grav.obs topo.dat" : "gzsen3d mesh grav.obs";
}

std::string no_fast_form_option(const Creation & creation)
{
    return creation.solver().form == InputForm::own && creation.in_use.model_file ? " NOFAST" : "";
}

std::vector<Script> run_scripts(const Creation & creation)
{
    const Solver & solver = creation.solver();
    const Script inversion = { script_name(solver.inversion), inversion_lines(creation) };
    // Called after the magnetic report for every method.
    const Script error = { "run_magerror.bat", { error_line(creation) } };
    if (creation.is_variation()) return { inversion, error };

    std::vector<Script> scripts = {
        { "run_inversion.bat", whole_job_lines(creation) },
        inversion,
        error,
        { script_name(solver.sensitivity), sensitivity_lines(creation) },
    };
    if (solver.form == InputForm::own)
        for (const Script & script : cluster_scripts()) scripts.push_back(script);
    return scripts;
}

void write_run_scripts(const Creation & creation)
{
    for (const Script & script : run_scripts(creation)) write_script(creation.folder + script.name, script.lines);
}
