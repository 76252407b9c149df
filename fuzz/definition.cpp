#include "definition/definition_file.h"
#include "definition/definition_text.h"
#include "form/main_form.h"
#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "rules/apply_definition.h"
#include "rules/change_rules.h"
#include "rules/validation.h"
#include "support/text.h"

#include <optional>

namespace {

struct StartedSetup : FuzzHost {
    Setup setup;

    StartedSetup()
    {
        setup.form = make_main_form();
        initialise_inversion_form(setup, host);
    }
};

/// A setup as it stands at the program's start, made once.
Setup fresh_setup()
{
    static const Setup started = StartedSetup().setup;
    return started;
}

/// Files that are there take the place of those named, so that no input leads elsewhere. One grid does for all.
void name_files_that_are_there(InversionDefinition & record)
{
    static const std::string points = scratch_file("points.csv", "X,Y,Z,T\n1,2,3,4\n11,12,13,14\n"),
                             grid = scratch_file("grid.gxf", "#POINTS\n2\n#ROWS\n2\n#XORIGIN\n0\n#YORIGIN\n0\n#PTSEPARATION\n10\n"
                                                             "#RWSEPARATION\n10\n#GRID\n1 2\n3 4\n");
    for (std::size_t slot = 0; slot < record.data_file.size(); ++slot)
        if (!trim(record.data_file[slot]).empty()) record.data_file[slot] = slot < 2 ? points : slot == 2 ? grid : "";
    for (std::string * const file : { &record.initial_model, &record.reference_model, &record.weighting_model,
                                      &record.model_bounds[0], &record.model_bounds[1], &record.rock_property_file })
        if (file->find_first_of("/\\") != std::string::npos) *file = points;
}

/// The check, whose message and whose record exclude each other.
void check(Setup & setup, FuzzHost & surroundings)
{
    surroundings.dialogs.messages = 0;
    std::optional<ValidatedDefinition> validated;
    const Status status = check_inversion_definitions(setup, validated, surroundings.host);
    must(validated.has_value() == (status == Status::good), "a record that has not been found good");
    must((surroundings.dialogs.messages == 0) == (status == Status::good), "a check that ends without a word");
    if (validated) definition_text(**validated);
}

InversionDefinition read_again(const std::string & text)
{
    ClosedDialogs dialogs;
    InversionDefinition record;
    const Status status = read_inversion_parameter_file(scratch_file("saved.inp", text), Selection::all, record, dialogs);
    must(status == Status::good && dialogs.messages == 0, "a saved definition that cannot be read");
    return record;
}

/// A file that was saved, read and saved again is the same.
void save_twice(const InversionDefinition & record)
{
    const std::string once = definition_text(read_again(definition_text(record)));
    must(definition_text(read_again(once)) == once, "a definition that changes each time it is saved");
}

}

void read_definition_text(Input input)
{
    const auto selection = static_cast<Selection>(input.take_number(0, 5));
    FuzzHost surroundings;
    InversionDefinition record;
    const std::string path = scratch_file("definition.inp", input.text);
    if (read_inversion_parameter_file(path, selection, record, surroundings.dialogs) != Status::good) return;
    save_twice(record);
    name_files_that_are_there(record);
    Setup setup = fresh_setup();
    load_mag3d_form(setup, record, selection, surroundings.host);
    check(setup, surroundings);
}

/// Lines of a byte for the control and a text: the user puts the text into the control, or picks the item of that number, and
/// checks it all in the end.
void read_typed_texts(Input input)
{
    static const auto names = fresh_setup().form.names();
    FuzzHost surroundings;
    Setup setup = fresh_setup();
    while (!input.text.empty()) {
        const auto & [name, count] = names[input.take_byte() % names.size()];
        const int index = input.take_number(0, count);
        const std::string text(input.take_to('\n'));
        if (text.find_first_of("/\\") != std::string::npos) continue; // no way out of this folder
        Control & control = setup.form(name, index);
        control.text = text;
        control.on = !text.empty();
        if (!control.items.empty()) choose_position(control, static_cast<std::int32_t>(text.size()) - 1);
        form_changed(setup, name, index, surroundings.host);
    }
    check(setup, surroundings);
}
