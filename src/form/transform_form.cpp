#include "form/transform_form.h"

Form make_transform_form()
{
    Form form;
    for (const char * name : {
             "Form_define_point_transform",
             "Tab_transform_type",
             // page 0, the parameters
             "Text_rotang",
             "Text_xorigin",
             "Text_yorigin",
             "Text_xoffset",
             "Text_yoffset",
             "Text_xscale",
             "Text_yscale",
             // page 1, the two points
             "Text_original_x1",
             "Text_original_y1",
             "Text_new_x1",
             "Text_new_y1",
             "Text_original_x2",
             "Text_original_y2",
             "Text_new_x2",
             "Text_new_y2",
             // both
             "Text_elevation_shift",
             "Text_elevation_scale",
             "Command_done",
             "Command_cancel",
             "Command_reset",
             "Command_invert_transform",
             "Command_load_transform_file",
             "Command_save_transform_file",
         })
        form.add(name);
    form["Form_define_point_transform"].caption = "Define coordinate transform";
    form["Text_elevation_scale"].tool_tip =
        "Multiplier applied to elevation value ( Formula used is Znew = (Zold+Zshift)*Zscale )";
    return form;
}
