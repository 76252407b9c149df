#include "app/press.h"

#include "app/create_command.h"
#include "app/output_folder.h"
#include "app/shell_commands.h"
#include "app/start_command.h"
#include "rules/file_boxes.h"
#include "rules/layout_rules.h"
#include "rules/limits_from_data.h"
#include "rules/mesh_events.h"
#include "rules/refinement.h"
#include "support/fault.h"

#include <algorithm>

namespace {

/// What a button or menu item runs.
struct Command {
    const char * control;
    Status (*run)(Session &, int index, Host &);
    bool while_busy = false; ///< may be pressed while another command runs
};

Status leave(Session & session, int, Host &)
{
    session.done = true;
    return Status::good;
}

template <bool visible>
Status show_checklist(Session & session, int, Host &)
{
    session.setup.form["Frame_checklist"].visible = visible;
    return Status::good;
}

Status cancel_tile(Session & session, int, Host &)
{
    press_cancel_tile(session);
    return Status::good;
}

Status close_layout(Session & session, int, Host &)
{
    press_done_tiling_layout(session.setup);
    return Status::good;
}

Status refresh_folders(Session & session, int, Host &)
{
    list_folders(session.setup.form);
    return Status::good;
}

/// A button beside a box opens the file dialog of the box.
Status pick_image(Session & session, int index, Host & host)
{
    pick_file(session.setup, "Text_image_file", index, host);
    return Status::good;
}

Status pick_bounds(Session & session, int index, Host & host)
{
    pick_file(session.setup, "Text_depth_weighting_file", index, host);
    return Status::good;
}

/// A command of the rules, which work on the setup alone.
template <auto rule>
Status of_setup(Session & session, int index, Host & host)
{
    return rule(session.setup, index, host);
}

template <auto command>
Status without_index(Session & session, int, Host & host)
{
    return command(session, host);
}

constexpr bool while_busy = true;

// One row per button and menu item.
constexpr Command commands[] = {
    // files and folders
    { "menu_read_file", &press_read_file },
    { "menu_save", &without_index<press_save> },
    { "menu_file_list", &press_recent_file },
    { "menu_working_directory", &without_index<press_working_directory> },
    { "Command_refresh", &refresh_folders },
    { "Command_set_cur_dir", &without_index<press_set_current_folder> },
    { "Command_make_folder", &without_index<press_make_folder> },
    // the shell
    { "menu_define_inversion_mode", &of_setup<press_define_inversion_mode> },
    { "menu_exit", &leave, while_busy },
    { "Command_done_mag3d", &leave, while_busy },
    { "Command_checklist", &show_checklist<true>, while_busy },
    { "Command_close_checklist", &show_checklist<false>, while_busy },
    // the definition
    { "Command_define_coordinate_transform", &without_index<press_define_transform> },
    { "Command_calculate_IGRF", &without_index<press_calculate_igrf> },
    { "Command_depth_weighting_file", &pick_bounds },
    { "Command_update", &of_setup<press_update> },
    { "Command_set_limits_from_file", &of_setup<set_limits_from_file> },
    // the layout
    { "Command_select_image_file", &pick_image },
    { "Command_view_tiling", [](Session & s, int, Host & host) { return press_view_tiling(s.setup, host); } },
    { "Command_done_tiling_layout", &close_layout },
    // creation and run
    { "Command_create_inversion", &press_create_inversion },
    { "Command_continue_tile", &without_index<press_continue_tile> },
    { "Command_cancel_tile", &cancel_tile },
    { "Command_start_inversion", &without_index<press_start_inversion> },
};

const Command * command_of(std::string_view control)
{
    const auto * const found =
        std::ranges::find(commands, control, [](const Command & row) { return std::string_view(row.control); });
    return found == std::end(commands) ? nullptr : found;
}

/// Marks the session busy for as long as it lives.
class Busy {
public:
    explicit Busy(bool & flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Busy() { flag_ = before_; }
    Busy(const Busy &) = delete;
    Busy & operator=(const Busy &) = delete;

private:
    bool & flag_;
    bool before_;
};

}

bool has_command(std::string_view control) { return command_of(control) != nullptr; }

Status press(Session & session, std::string_view control, int index, Host & host)
{
    const Command * const command = command_of(control);
    if (!command) throw SubscriptFault("the main form has no command for " + std::string(control));
    static_cast<void>(session.setup.form(control, index)); // fails for an index that the control does not have
    // A long command lets events run, and with them the buttons.
    if (session.busy && !command->while_busy) return Status::stopped;
    const Busy busy(session.busy);
    try {
        return command->run(session, index, host);
    } catch (const Stopped &) {
        return Status::stopped;
    } catch (const std::exception & fault) {
        host.dialogs.message(fault.what());
        return Status::bad;
    }
}
