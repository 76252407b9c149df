#include "rules/transform_rules.h"

#include "form/transform_form.h"
#include "support/fault.h"
#include "support/numbers.h"
#include "support/paths.h"
#include "support/pattern.h"
#include "utilities/transform_file.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

constexpr const char * scale_pattern = "0.00000000";
constexpr const char * plain_pattern = "0.0000";

/// A box of a number, its field and what is said of a bad text.
struct NumberBox {
    const char * control;
    double PointTransform::*field;
    const char * not_numeric;
    const char * zero = nullptr; ///< null: may be 0
    const char * pattern = plain_pattern;
};

using T = PointTransform;

constexpr NumberBox parameter_boxes[] = {
    { "Text_rotang", &T::rotation, "Rotation angle must be numeric" },
    { "Text_xorigin", &T::x_origin, "Grid x origin must be numeric" },
    { "Text_yorigin", &T::y_origin, "Grid y origin must be numeric" },
    { "Text_xoffset", &T::new_x_origin, "New x origin must be numeric" },
    { "Text_yoffset", &T::new_y_origin, "New y origin must be numeric" },
    { "Text_xscale", &T::x_scale, "Scale for current x axis must be numeric", "Scale for current x axis must be non-zero",
      scale_pattern },
    { "Text_yscale", &T::y_scale, "Scale for current y axis must be numeric", "Scale for current y axis must be non-zero",
      scale_pattern },
    { "Text_elevation_shift", &T::elevation_shift, "Elevation shift must be numeric" },
    { "Text_elevation_scale", &T::elevation_scale, "Elevation scale must be numeric", "Elevation scale must be non-zero",
      scale_pattern },
};

constexpr NumberBox point_boxes[] = {
    { "Text_original_x1", &T::x_origin, "Original X1 must be numeric" },
    { "Text_original_y1", &T::y_origin, "Original Y1 must be numeric" },
    { "Text_new_x1", &T::new_x_origin, "New X1 must be numeric" },
    { "Text_new_y1", &T::new_y_origin, "New Y1 must be numeric" },
    { "Text_original_x2", &T::x2, "Original X2 must be numeric" },
    { "Text_original_y2", &T::y2, "Original Y2 must be numeric" },
    { "Text_new_x2", &T::new_x2, "New X2 must be numeric" },
    { "Text_new_y2", &T::new_y2, "New Y2 must be numeric" },
    { "Text_elevation_shift", &T::elevation_shift, "Elevation shift must be numeric" },
    { "Text_elevation_scale", &T::elevation_scale, "Elevation scale must be numeric", nullptr, scale_pattern },
};

std::string shown(const NumberBox & box, const PointTransform & transform)
{
    return format_number(transform.*box.field, box.pattern);
}

void show_transform(TransformSetup & setup)
{
    for (const NumberBox & box : parameter_boxes) setup.form[box.control].text = shown(box, setup.transform);
    for (const NumberBox & box : point_boxes) setup.form[box.control].text = shown(box, setup.transform);
    setup.form["Tab_transform_type"].position = setup.page;
}

Status refuse(const char * message, Host & host)
{
    host.dialogs.message(message);
    return Status::bad;
}

/// Takes the boxes of a page. A box that still shows its field leaves it alone: the field may hold more digits.
Status take_boxes(const TransformSetup & setup, std::span<const NumberBox> boxes, PointTransform & transform, Host & host)
{
    for (const NumberBox & box : boxes) {
        const std::string & text = setup.form[box.control].text;
        if (!is_numeric(text)) return refuse(box.not_numeric, host);
        const double number = text == shown(box, transform) ? transform.*box.field : leading_number(text);
        if (box.zero && number == 0) return refuse(box.zero, host);
        transform.*box.field = number;
    }
    return Status::good;
}

Status define_from_page(PointTransform & transform, Host & host)
{
    const TransformPoint first = { transform.x_origin, transform.y_origin, transform.new_x_origin, transform.new_y_origin };
    const TransformPoint second = { transform.x2, transform.y2, transform.new_x2, transform.new_y2 };
    if (first.x == second.x && first.y == second.y) return refuse("First and second original points must be distinct", host);
    if (first.new_x == second.new_x && first.new_y == second.new_y)
        return refuse("First and second new points must be distinct", host);
    if (!define_transform_from_points(first, second, transform.elevation_shift, transform.elevation_scale, transform))
        return refuse("The specified points cannot be used to define a meaningful transform", host);
    return Status::good;
}

/// True when the second points tell the same transform as the parameters do.
bool second_point_agrees(const PointTransform & t)
{
    constexpr double near = 0.1; // metres; far more than rounding, far less than anybody's mistake
    double x = t.x2, y = t.y2, z = 0;
    apply_point_transform(t, TransformDirection::forward, x, y, z);
    return std::hypot(t.x2 - t.x_origin, t.y2 - t.y_origin) > near && std::hypot(x - t.new_x2, y - t.new_y2) < near;
}

/// Parameters tell one point alone. A second that agrees with them lets the user look at the page of points and come back with
/// the same transform. Where two points cannot tell it, the second is the first, which the page refuses.
void propose_second_point(PointTransform & t)
{
    if (second_point_agrees(t)) return;
    const bool possible = t.in_use && t.x_scale == t.y_scale && t.x_scale > 0;
    double z = 0;
    t.x2 = t.x_origin + (possible ? 1000 : 0);
    t.y2 = t.y_origin;
    t.new_x2 = t.x2;
    t.new_y2 = t.y2;
    if (possible) apply_point_transform(t, TransformDirection::forward, t.new_x2, t.new_y2, z);
}

Status reset(TransformSetup & setup, Host &)
{
    reset_point_transform(setup.transform);
    setup.page = 0; // it holds no two points, and the page of points would be refused when it is left
    return Status::good;
}

Status invert(TransformSetup & setup, Host & host)
{
    if (apply_transform_page(setup, host) != Status::good) return Status::bad;
    invert_point_transform(setup.transform);
    return Status::good;
}

constexpr const char * section = "ZEB2024";
constexpr const char * folder_setting = "DefinePointTransformCWD";

FileDialog file_dialog(Host & host)
{
    const std::string folder = host.settings.read(section, folder_setting, no_setting);
    const std::string start = folder == no_setting || folder.empty() ? std::string() : with_backslash(folder);
    return { "Specify the name of Coordinate transformation file", "Coordinate Files (*.crd)|*.crd|All files (*.*)|*.*",
             start + "*.crd", "crd" };
}

void keep_folder(const std::string & path, Host & host) { host.settings.write(section, folder_setting, folder_of_path(path)); }

Status load(TransformSetup & setup, Host & host)
{
    const auto path = host.dialogs.open_file(file_dialog(host));
    if (!path) return Status::stopped;
    keep_folder(*path, host);
    if (read_transform_file(*path, setup.transform, host.dialogs) != Status::good) return Status::bad;
    setup.page = 1; // a file holds two points
    return Status::good;
}

/// What the page says is what the user means to save.
Status save(TransformSetup & setup, Host & host)
{
    if (apply_transform_page(setup, host) != Status::good) return Status::bad;
    auto path = host.dialogs.save_file(file_dialog(host));
    if (!path) return Status::stopped;
    if (file_extension_of_path(*path).empty()) *path += ".crd";
    if (!find_file(*path).empty() && !host.dialogs.question("That file already, exists, overwrite?")) return Status::stopped;
    write_transform_file(*path, setup.transform);
    keep_folder(*path, host);
    return Status::good;
}

struct Command {
    std::string_view name;
    Status (*run)(TransformSetup & setup, Host & host);
};

constexpr Command commands[] = {
    { "Command_reset", &reset },
    { "Command_invert_transform", &invert },
    { "Command_load_transform_file", &load },
    { "Command_save_transform_file", &save },
};

}

TransformSetup open_transform(const PointTransform & transform)
{
    TransformSetup setup = { make_transform_form(), transform, transform.two_point ? 1 : 0 };
    show_transform(setup);
    return setup;
}

Status apply_transform_page(TransformSetup & setup, Host & host)
{
    PointTransform applied = setup.transform;
    if (setup.page == 1) {
        if (take_boxes(setup, point_boxes, applied, host) != Status::good) return Status::bad;
        if (define_from_page(applied, host) != Status::good) return Status::bad;
    } else {
        if (take_boxes(setup, parameter_boxes, applied, host) != Status::good) return Status::bad;
        applied.two_point = false;
        normalise_point_transform(applied);
    }
    setup.transform = applied;
    return Status::good;
}

Status change_transform_page(TransformSetup & setup, int page, Host & host)
{
    const Status status = apply_transform_page(setup, host);
    if (status == Status::good) {
        if (page == 1 && !setup.transform.two_point) propose_second_point(setup.transform);
        setup.page = page;
        show_transform(setup);
    }
    setup.form["Tab_transform_type"].position = setup.page; // the list of pages goes back when it has gone ahead
    return status;
}

Status press_transform(TransformSetup & setup, std::string_view command, Host & host)
{
    const Command * const found = std::ranges::find(commands, command, &Command::name);
    if (found == std::end(commands)) throw SubscriptFault("the transform form has no command " + std::string(command));
    const Status status = found->run(setup, host);
    if (status == Status::good) show_transform(setup);
    return status;
}
