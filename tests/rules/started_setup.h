#pragma once

#include "fakes/recorded_host.h"
#include "form/main_form.h"
#include "rules/apply_definition.h"
#include "rules/change_rules.h"

/// A setup as it stands when the program has started, with what a user does to it.
struct StartedSetup : RecordedHost {
    Setup setup;

    StartedSetup()
    {
        setup.form = make_main_form();
        initialise_inversion_form(setup, host);
    }
    void type(const char * control, const std::string & text, int index = 0)
    {
        setup.form(control, index).text = text;
        form_changed(setup, control, index, host);
    }
    void pick(const char * control, int position, int index = 0)
    {
        setup.form(control, index).position = position;
        form_changed(setup, control, index, host);
    }
    void turn(const char * control, bool on, int index = 0)
    {
        setup.form(control, index).on = on;
        form_changed(setup, control, index, host);
    }
    void load(const InversionDefinition & record, Selection selection = Selection::all)
    {
        load_mag3d_form(setup, record, selection, host);
    }
    const std::string & text(const char * control, int index = 0) { return setup.form(control, index).text; }
};
