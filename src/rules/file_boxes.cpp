#include "rules/file_boxes.h"

#include "rules/change_rules.h"
#include "rules/data_columns.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/text.h"

#include <algorithm>

namespace {

constexpr const char * data_box = "Text_data_locations";
constexpr const char * location_box = "Dir1";
constexpr int topography = 1;

constexpr const char * grids = "Grid Files (*.grd;*.ers)|*.grd;*.ers|All files (*.*)|*.*";
constexpr const char * models = "Data Files (*.sus;*.den;*.mod)|*.sus;*.den;*.mod|All files (*.*)|*.*";

/// What a file box asks for.
struct FileBox {
    const char * control;
    int index; // -1: all
    const char * title;
    const char * filter;
};

constexpr FileBox topography_grid = { data_box, topography, "Select the topo grid file", grids };

constexpr FileBox file_boxes[] = {
    { data_box, 0, "Select the observed data file",
      "Data Files (*.dat;*.xyz;*.stn;*.gdb;*.csv)|*.dat;*.xyz;*.stn;*.gdb;*.csv|All files (*.*)|*.*" },
    { data_box, topography, "Select the topo data file",
      "Data Files (*.dat;*.xyz;*.csv,*.grd;*.ers)|*.dat;*.xyz;*.csv;*.grd;*.ers|All files (*.*)|*.*" },
    { data_box, 2, "Select the observed data grid file", grids },
    { data_box, 3, "Select the second data grid file", grids },
    { data_box, 4, "Select the third data grid file", grids },
    { data_box, 5, "Select the sensor grid file", grids },
    { "Text_depth_weighting_file", -1, "Select the model weighting file",
      "Data Files (*.sus;*.den;*.mod;*.bnd)|*.sus;*.den;*.mod;*.bnd|All files (*.*)|*.*" },
    { "Text_image_file", -1, "Select the image file to display in the mesh layout",
      "Image Files (*.grd;*.ers)|*.grd;*.ers|All files (*.*)|*.*" },
    { "Text_initial_file", -1, "Select the initial model file", models },
    { "Text_reference_file", -1, "Select the reference model file", models },
    { "Text_rock_propery_file", -1, "Select the rock property file", "Data Files (*.lkp;*.csv)|*.lkp;*.csv|All files (*.*)|*.*" },
    { "Text_weight_file", -1, "Select the weight model file", "Data Files (*.dat)|*.dat|All files (*.*)|*.*" },
};

const FileBox * find_file_box(const Setup & setup, std::string_view control, int index)
{
    const auto box = std::ranges::find_if(
        file_boxes, [&](const FileBox & row) { return row.control == control && (row.index < 0 || row.index == index); });
    if (box == std::end(file_boxes)) return nullptr;
    const bool shows_grid = setup.form["Frame_data_file_image"].visible;
    return control == data_box && index == topography && shows_grid ? &topography_grid : box;
}

/// A name, in contrast to a constant or the word that stands for no model.
std::string start_of(const std::string & text)
{
    const std::string_view name = trim(text);
    return same_text(name, "NULL") || is_numeric(name) ? "" : std::string(name);
}

void choose_topography(Setup & setup, bool from_file)
{
    setup.definition.topo_type = from_file ? 0 : 1;
    show_topo_type(setup);
}

/// A name as it is held in definitions: copied ones come in quotes, and some write "/" for "\".
std::string tidied_name(const std::string & text)
{
    std::string name(without_quotes(text));
    std::ranges::replace(name, '/', '\\');
    return name;
}

void take_data_file(Setup & setup, int slot, const std::string & name, Host & host)
{
    const auto at = static_cast<std::size_t>(slot);
    setup.form(data_box, slot).text = name;
    setup.definition.data_file[at] = name;
    if (slot == topography) choose_topography(setup, !name.empty());
    display_data_file(setup, slot);
    if (at >= setup.column_name_count.size()) return;
    setup.column_name_count[at] = 0;
    display_data_lines(setup, slot);
    display_location_column_definitions(setup, slot, host);
}

/// The folder in which that of the inversion is made; the drive follows.
void pick_location(Form & form, Host & host)
{
    const auto picked = host.dialogs.choose_folder("Select a Folder", std::string(trim(form[location_box].text)));
    if (!picked) return;
    const std::string drive = drive_of_path(*picked);
    form["Drive1"].text = drive.empty() ? "\\" : drive;
    form[location_box].text = *picked;
}

}

bool is_file_box(std::string_view control)
{
    return control == location_box ||
           std::ranges::any_of(file_boxes, [&](const FileBox & row) { return row.control == control; });
}

void pick_file(Setup & setup, std::string_view control, int index, Host & host)
{
    if (control == location_box) {
        pick_location(setup.form, host);
        return;
    }
    const FileBox * box = find_file_box(setup, control, index);
    if (box == nullptr) return;
    const auto picked = host.dialogs.open_file({ box->title, box->filter, start_of(setup.form(control, index).text), "" });
    if (picked) take_file(setup, control, index, *picked, host);
}

void take_file(Setup & setup, std::string_view control, int index, const std::string & path, Host & host)
{
    if (control == data_box) {
        take_data_file(setup, index, path, host);
        return;
    }
    setup.form(control, index).text = path;
    form_changed(setup, control, index, host);
    if (control == "Text_depth_weighting_file") setup.definition.model_bounds.at(static_cast<std::size_t>(index)) = path;
}

bool leave_file_box(Setup & setup, std::string_view control, int index, Host & host)
{
    if (control != data_box) return false;
    const std::string name = tidied_name(setup.form(control, index).text);
    if (name != setup.definition.data_file.at(static_cast<std::size_t>(index)))
        take_data_file(setup, index, name, host);
    else
        setup.form(control, index).text = name;
    return true;
}
