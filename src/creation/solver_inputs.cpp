#include "creation/solver_inputs.h"

#include "support/numbers.h"

void write_sensitivity_inputs(Creation & creation)
{
    const Solver & solver = creation.solver();
    if (creation.is_variation() || solver.form == InputForm::first) return;
    if (*solver.weight_input) {
        write_lines(creation.folder + solver.weight_input, weight_input_lines(creation));
        creation.thread_suffix = " " + general_text(creation.definition.num_threads);
    }
    write_lines(creation.folder + solver.sensitivity + ".inp", sensitivity_input_lines(creation));
}

void write_inversion_inputs(const Creation & creation)
{
    const std::string stem = creation.folder + creation.solver().inversion;
    write_lines(stem + ".inp", inversion_input_lines(creation, SolverStart::fresh));
    if (creation.refined) write_lines(stem + ".restart", inversion_input_lines(creation, SolverStart::restart));
}
