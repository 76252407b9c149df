#include "rules/started_setup.h"
#include "support/fault.h"

#include <gtest/gtest.h>

TEST(methods, given_each_when_chosen_then_the_controls_it_needs_are_shown)
{
    StartedSetup started;
    for (const auto & [control, index, states] : cases_of<3>("method_controls.cases")) {
        bool & visible = started.setup.form(control, number_in(index)).visible;
        for (std::size_t method = 0; method < states.size(); ++method) {
            for (const bool before : { true, false }) {
                visible = before;
                started.act("Combo_inversion_method = " + std::to_string(method));
                EXPECT_EQ(visible, states[method] == '-' ? before : states[method] == 'V') << control << method;
            }
        }
    }
}

TEST(change_rules, given_steps_of_the_user_then_fields_and_controls_follow)
{
    for (const auto & [definition, steps, seen] : cases_of<3>("change_rules.cases")) {
        SCOPED_TRACE(definition + " | " + steps);
        StartedSetup started;
        if (!definition.empty()) started.load_lines(definition);
        started.act(steps);
        started.expect(seen);
        EXPECT_TRUE(started.dialogs.messages.empty());
    }
}

TEST(change_rules, given_a_number_beyond_its_field_then_a_fault_and_no_change)
{
    StartedSetup started;
    EXPECT_THROW(started.act("Text_alpha_e = 1e39"), OverflowFault);
    EXPECT_EQ(started.setup.definition.alpha_e, 1);
}
