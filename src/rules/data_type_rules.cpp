#include "definition/enumerations.h"
#include "rules/bound_controls.h"
#include "rules/change_rules.h"
#include "rules/solver_rules.h"
#include "support/numbers.h"

namespace {

constexpr std::int32_t no_type = -1;
constexpr std::int32_t vrmi = 30;
constexpr std::int32_t vmi = 100;

bool of_own_solver(const Setup & setup)
{
    return inversion_method_of(setup.definition.inversion_method).family == MethodFamily::own;
}

/// Which of the lists behind the first are open: horizontal gradients come in pairs, field components in threes.
void show_further_lists(Setup & setup, std::int32_t type)
{
    const bool own = of_own_solver(setup);
    const bool components = type >= 20 && type < vmi && type != vrmi;
    setup.form("Combo_data_type", 1).visible = own && (components || type == 5 || type == 6);
    setup.form("Combo_data_type", 2).visible = own && components;
    setup.form("Label_data_type", 1).visible = setup.form("Combo_data_type", 1).visible;
}

void show_frames(Setup & setup, std::int32_t type)
{
    Form & form = setup.form;
    if (!of_own_solver(setup)) {
        form["Frame_tensor"].visible = false;
        return;
    }
    const bool magnetic = type == 1 || type >= 20;
    form["Frame_field"].visible = magnetic;
    form["Frame_tensor"].visible = type == 3 || type == 4; // the line azimuth
    if (magnetic) form["Frame_incl_decl"].visible = type != vrmi;
}

void show_component_columns(Setup & setup, bool shown)
{
    for (const char * control : { "Text_UBC_locations_magpos", "Label_obs_data" }) {
        setup.form(control, 1).visible = shown;
        setup.form(control, 2).visible = shown;
    }
}

struct ClassDefaults {
    const char * trade_off_and_floor;
    const char * wavelet_eps;
    const char * beta;
};

ClassDefaults defaults_of(DataClass data_class)
{
    switch (data_class) {
    case DataClass::magnetic:
        return { "1", "0.001", "3" };
    case DataClass::gravity:
        return { "0.01", "0.001", "1.8" };
    case DataClass::gradient:
        break;
    }
    return { "0.1", "0.001", "3" };
}

/// What the user has changed stays; what still is the old default, or no number, follows.
void follow_default(Setup & setup, const char * control, const char * old_default, const char * new_default)
{
    const std::string & text = setup.form[control].text;
    if (is_numeric(text) && leading_number(text) != leading_number(old_default)) return;
    set_box(setup, control, 0, new_default);
}

void follow_defaults(Setup & setup, std::int32_t old_type, std::int32_t new_type)
{
    // A first type that was never chosen stands for magnetic.
    const ClassDefaults before = defaults_of(old_type == no_type ? DataClass::magnetic : class_of_data_type(old_type));
    const ClassDefaults after = defaults_of(class_of_data_type(new_type));
    set_box(setup, "Text_percent_error", 0, "0");
    follow_default(setup, "Text_inversion_par", before.trade_off_and_floor, after.trade_off_and_floor);
    follow_default(setup, "Text_error_floor", before.trade_off_and_floor, after.trade_off_and_floor);
    follow_default(setup, "Text_wavelet_eps", before.wavelet_eps, after.wavelet_eps);
    follow_default(setup, "Text_weighting_beta", before.beta, after.beta);
}

}

void show_data_types(Setup & setup)
{
    const auto & types = setup.definition.obs_data_types;
    show_further_lists(setup, types[0]);
    show_frames(setup, types[0]);
    show_component_columns(setup, types[1] >= 1 || types[2] >= 1);
}

void change_data_type(Setup & setup, int index)
{
    std::int32_t & type = setup.definition.obs_data_types.at(static_cast<std::size_t>(index));
    const std::int32_t old_type = type;
    type = chosen_code(setup.form("Combo_data_type", index), no_type);
    if (index > 0) {
        show_component_columns(setup, type >= 1);
        return;
    }
    show_further_lists(setup, type);
    show_frames(setup, type);
    if (of_own_solver(setup) && !setup.loading) follow_defaults(setup, old_type, type);
}

void show_data_captions(Setup & setup)
{
    if (!of_own_solver(setup)) {
        const bool magnetic = inversion_method_of(setup.definition.inversion_method).family == MethodFamily::magnetic;
        setup.form("Label_obs_data", 0).caption = magnetic ? "Mag data" : "Grav data";
        return;
    }
    for (int i = 0; i < 3; ++i)
        setup.form("Label_obs_data", i).caption =
            data_type_of(setup.definition.obs_data_types[static_cast<std::size_t>(i)]).caption;
}
