#include "rules/igrf_rules.h"

#include "form/igrf_form.h"
#include "support/fault.h"
#include "support/list.h"
#include "support/numbers.h"
#include "support/pattern.h"
#include "support/text.h"
#include "utilities/reference_field.h"

#include <algorithm>

namespace {

/// The names of saved locations are those of the settings in this section, so nothing else may stand in it.
constexpr const char * locations = "IGRF";
constexpr const char * own_section = "ZEB_QVinv3d_setup";
constexpr const char * latest_setting = "LatestIGRF";

/// Which box shows what.
struct Box {
    const char * control;
    std::string IgrfShown::*text;
};

constexpr Box place_boxes[] = {
    { "Text_IGRF_date", &IgrfShown::date },
    { "Text_IGRF_latitude", &IgrfShown::latitude },
    { "Text_IGRF_longitude", &IgrfShown::longitude },
    { "Text_IGRF_elevation", &IgrfShown::elevation },
};

constexpr Box field_boxes[] = {
    { "Text_IGRF_intensity", &IgrfShown::intensity },           { "Text_IGRF_inclination", &IgrfShown::inclination },
    { "Text_IGRF_declination", &IgrfShown::declination },       { "Text_IGRF_intensity_SV", &IgrfShown::intensity_sv },
    { "Text_IGRF_inclination_SV", &IgrfShown::inclination_sv }, { "Text_IGRF_declination_SV", &IgrfShown::declination_sv },
};

constexpr double IgrfRecord::*kept_numbers[] = { &IgrfRecord::latitude,      &IgrfRecord::longitude,
                                                 &IgrfRecord::elevation,     &IgrfRecord::intensity,
                                                 &IgrfRecord::inclination,   &IgrfRecord::declination,
                                                 &IgrfRecord::intensity_sv,  &IgrfRecord::inclination_sv,
                                                 &IgrfRecord::declination_sv };

/// A record as one text: the date as it is shown, then the numbers in full.
std::string kept_text(const IgrfRecord & record)
{
    std::string text = igrf_date_text(record.date);
    for (double IgrfRecord::*const number : kept_numbers) text += "," + general_text(record.*number);
    return text;
}

/// Nothing for a text that is no record, whoever wrote it.
std::optional<IgrfRecord> record_in(const std::string & text)
{
    List<std::string> fields;
    std::int32_t count = 0;
    split_fields(count, text, ',', fields);
    IgrfRecord record;
    if (count != 1 + static_cast<std::int32_t>(std::size(kept_numbers))) return std::nullopt;
    if (parse_igrf_date(fields[1], record.date) != Status::good) return std::nullopt;
    for (std::int32_t i = 2; i <= count; ++i) {
        if (!is_numeric(fields[i])) return std::nullopt;
        record.*kept_numbers[i - 2] = leading_number(fields[i]);
    }
    record.computed = true;
    return record;
}

void show_boxes(std::span<const Box> boxes, const IgrfRecord & record, Form & form)
{
    const IgrfShown shown = igrf_shown(record);
    for (const Box & box : boxes) form[box.control].text = shown.*box.text;
}

/// Whether what is shown can be saved, and whether it belongs to what stands in the boxes.
void show_state(IgrfSetup & setup)
{
    const bool outdated = setup.edited && setup.record.computed;
    setup.form["Command_save_igrf"].enabled = setup.record.computed && !setup.edited;
    setup.form["Frame_IGRF_results"].enabled = !outdated;
    setup.form["Label_IGRF_state"].caption = outdated                ? "The place or the date has changed: calculate again."
                                             : setup.record.computed ? "Declination is positive east, inclination downwards."
                                                                     : "Give a place and a date, then calculate.";
}

void show_record(IgrfSetup & setup)
{
    setup.edited = false;
    if (setup.record.computed) {
        show_boxes(place_boxes, setup.record, setup.form);
        show_boxes(field_boxes, setup.record, setup.form);
    }
    show_state(setup);
}

void list_locations(IgrfSetup & setup, Host & host)
{
    Control & list = setup.form["Combo_IGRF"];
    list.items.clear();
    list.position = -1;
    for (const std::string & name : host.settings.names(locations)) {
        if (name == setup.record.name) list.position = static_cast<int>(list.items.size());
        list.items.push_back({ name, 0 });
    }
}

void show_model(Form & form)
{
    Control & label = form["Label_IGRF_model"];
    try {
        const ReferenceFieldModel & model = reference_field_model();
        label.caption = model.name + ", " + format_number(model.first_year, "0") + " to " + format_number(model.last_year, "0");
    } catch (const FileFault & fault) { // the user can still look at what has been saved
        label.caption = fault.what();
    }
}

Status calculate(IgrfSetup & setup, Host & host)
{
    const Form & form = setup.form;
    const IgrfTexts texts = { form["Text_IGRF_date"].text, form["Text_IGRF_longitude"].text, form["Text_IGRF_latitude"].text,
                              form["Text_IGRF_elevation"].text };
    IgrfRecord computed = setup.record;
    if (calculate_igrf(texts, computed, host) != Status::good) return Status::bad;
    setup.record = computed;
    if (setup.edited) setup.record.name.clear(); // it is another place than the one that was saved
    setup.form["Combo_IGRF"].position = setup.record.name.empty() ? -1 : setup.form["Combo_IGRF"].position;
    setup.edited = false;
    show_boxes(field_boxes, setup.record, setup.form); // the place stays as it was typed
    show_state(setup);
    return Status::good;
}

Status save(IgrfSetup & setup, Host & host)
{
    const auto given = host.dialogs.input("Specify Name", "Enter a name for this location", setup.record.name);
    if (!given || trim(*given).empty()) return Status::stopped;
    std::string name(trim(*given));
    const std::vector<std::string> names = host.settings.names(locations);
    // Where the settings are a registry, names that differ only in case are one.
    const auto known = std::ranges::find_if(names, [&name](const std::string & other) { return same_text(name, other); });
    if (known != names.end()) {
        if (!host.dialogs.question("That name already exists. Overwrite?")) return Status::stopped;
        name = *known;
    }
    if (!host.settings.write(locations, name, kept_text(setup.record))) {
        host.dialogs.message("The location could not be saved in the settings: " + name);
        return Status::bad;
    }
    setup.record.name = name;
    list_locations(setup, host);
    return Status::good;
}

void load(IgrfSetup & setup, Host & host)
{
    const std::string name = chosen_text(setup.form["Combo_IGRF"]);
    if (name.empty()) return;
    auto record = record_in(host.settings.read(locations, name, no_setting));
    if (!record) {
        host.dialogs.message("The saved location cannot be read: " + name);
        list_locations(setup, host);
        return;
    }
    setup.record = *record;
    setup.record.name = name;
    show_record(setup);
}

/// What is not known of the survey stays as it stands.
Status take_survey(IgrfSetup & setup, Host &)
{
    if (!setup.survey) return Status::stopped;
    const SurveyPlace & survey = *setup.survey;
    IgrfRecord place;
    place.latitude = survey.latitude;
    place.longitude = survey.longitude;
    place.elevation = survey.elevation.value_or(0);
    place.date = survey.date.value_or(IgrfDate());
    Form & form = setup.form;
    const std::string date = form["Text_IGRF_date"].text, elevation = form["Text_IGRF_elevation"].text;
    show_boxes(place_boxes, place, form);
    if (!survey.date) form["Text_IGRF_date"].text = date;
    if (!survey.elevation) form["Text_IGRF_elevation"].text = elevation;
    setup.edited = true;
    show_state(setup);
    return Status::good;
}

Status accept(IgrfSetup & setup, Host & host)
{
    // Else what is copied would be the field of another place than the one that is read in the boxes.
    if (setup.edited && calculate(setup, host) != Status::good) return Status::bad;
    if (setup.record.computed) host.settings.write(own_section, latest_setting, kept_text(setup.record));
    return Status::good;
}

struct Command {
    std::string_view name;
    Status (*run)(IgrfSetup & setup, Host & host);
};

constexpr Command commands[] = {
    { "Command_calculate_IGRF", &calculate },
    { "Command_save_igrf", &save },
    { "Command_survey_centre", &take_survey },
    { "Command_done", &accept },
};

}

IgrfSetup open_igrf(const IgrfRecord & record, const std::optional<SurveyPlace> & survey, Host & host)
{
    IgrfSetup setup = { make_igrf_form(), record, survey };
    if (!record.computed)
        if (const auto latest = record_in(host.settings.read(own_section, latest_setting, no_setting))) setup.record = *latest;
    setup.form["Command_survey_centre"].visible = survey.has_value();
    show_model(setup.form);
    list_locations(setup, host);
    show_record(setup);
    return setup;
}

void change_igrf(IgrfSetup & setup, std::string_view control, Host & host)
{
    if (control == "Combo_IGRF") {
        load(setup, host);
    } else if (std::ranges::find(place_boxes, control, &Box::control) != std::end(place_boxes)) {
        setup.edited = true;
        show_state(setup);
    }
}

Status press_igrf(IgrfSetup & setup, std::string_view command, Host & host)
{
    const Command * const found = std::ranges::find(commands, command, &Command::name);
    if (found == std::end(commands)) throw SubscriptFault("the form of the field has no command " + std::string(command));
    return found->run(setup, host);
}
