#include "creation/given_creation.h"
#include "creation/solver_inputs.h"
#include "support/fault.h"

#include <gtest/gtest.h>

namespace {

Lines input_of(const std::string & program, const Creation & creation)
{
    if (program == "weights") return weight_input_lines(creation);
    if (program == "sensitivity") return sensitivity_input_lines(creation);
    return inversion_input_lines(creation, SolverStart::fresh);
}

/// A line by its number, from 1, or from -1 for the last one backwards; all of them with "/" between.
std::string line_of(const Lines & lines, const std::string & number)
{
    if (number != "all") {
        const int place = number_in(number);
        return lines.at(static_cast<std::size_t>(place > 0 ? place - 1 : static_cast<int>(lines.size()) + place));
    }
    std::string all;
    for (const std::string & line : lines) all += (all.empty() ? "" : "/") + line;
    return all;
}

}

TEST(solver_inputs, given_a_run_then_its_files_or_lines)
{
    for (const auto & [program, method, type, run, changes, line, expected] : cases_of<7>("solver_inputs.cases")) {
        const GivenCreation given(method, type, run, changes);
        EXPECT_EQ(line_of(input_of(program, given.creation()), line), expected)
            << program << " " << method << " " << type << " " << run << " " << changes;
    }
}

TEST(solver_inputs, given_a_wavelet_outside_the_list_then_a_fault_and_no_blank_name)
{
    const GivenCreation given("2", "0", "", "Wavelet definitions: 1 10 1 1");
    EXPECT_THROW(sensitivity_input_lines(given.creation()), SubscriptFault);
}
