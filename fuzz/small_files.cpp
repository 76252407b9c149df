#include "app/file_settings.h"
#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text_file.h"
#include "utilities/dms_text.h"
#include "utilities/igrf_record.h"
#include "utilities/transform_file.h"

#include <cmath>

namespace {

/// What is taken for an angle has a value near its range, and a text that gives the value again to half a unit of its last digit.
void check_angle(const std::string & text, DmsAxis axis)
{
    const double angle = parse_dms_text(text, axis);
    if (check_dms_text(text, axis) != Status::good) return;
    must(std::abs(angle) <= 181, "an angle beyond its range");
    const std::string shown = format_dms_text(angle, 0);
    must(std::abs(parse_dms_text(shown, axis) - angle) < 0.0005001 / 3600, "an angle shown as another: " + shown);
    for (int style = -5; style <= 5; ++style) must(!format_dms_text(angle, style).empty(), "an angle without a text");
}

/// Points whose distances 15 digits keep beyond the metre that they need.
bool is_everyday(const PointTransform & t)
{
    for (const double at : { t.x_origin, t.y_origin, t.x2, t.y2, t.new_x_origin, t.new_y_origin, t.new_x2, t.new_y2 })
        if (!(std::abs(at) < 1e9)) return false;
    return std::hypot(t.x2 - t.x_origin, t.y2 - t.y_origin) > 1.001 &&
           std::hypot(t.new_x2 - t.new_x_origin, t.new_y2 - t.new_y_origin) > 1.001;
}

PointTransform block_of(const std::string & path)
{
    PointTransform transform;
    TextFile file(path);
    read_transform_block(file, transform);
    return transform;
}

}

void read_transform(Input input)
{
    const std::string path = scratch_file("transform.crd", input.text);
    ClosedDialogs dialogs;
    PointTransform transform;
    try {
        if (read_transform_file(path, transform, dialogs) == Status::good) {
            must(transform.x_scale != 0 && transform.y_scale != 0, "a scale of 0");
            const PointTransform written = transform;
            write_transform_file(scratch_folder() + "\\written.crd", transform);
            const Status again = read_transform_file(scratch_folder() + "\\written.crd", transform, dialogs);
            must(again == Status::good || !is_everyday(written), "a saved transform that cannot be read");
        }
    } catch (const Fault &) { // the other form is read in any case
    }
    const std::string block = transform_block(block_of(path));
    must(transform_block(block_of(scratch_file("block.txt", block))) == block, "a transform that changes each time it is saved");
}

void read_settings(Input input)
{
    const std::string path = scratch_file("settings.json", input.text), damaged = path + ".damaged";
    FileSettings settings(path);
    settings.read("ZEB_QVinv3d_setup", "folder", "none");
    const std::string text(input.text.substr(0, 20));
    const std::string other = settings.read("ZEB_QVinv3d_setup", "MRU1", "none");
    if (settings.write("ZEB_QVinv3d_setup", "folder", text)) {
        must(settings.read("ZEB_QVinv3d_setup", "folder", "none") == text, "a setting that is not kept");
        must(settings.read("ZEB_QVinv3d_setup", "MRU1", "none") == other, "a setting lost beside another");
    }
    delete_file(damaged);
}

/// Lines with a date, a longitude, a latitude and an elevation.
void read_place(Input input)
{
    IgrfTexts texts;
    for (std::string * const text : { &texts.date, &texts.longitude, &texts.latitude, &texts.elevation })
        *text = input.take_to('\n');
    check_angle(texts.longitude, DmsAxis::longitude);
    check_angle(texts.latitude, DmsAxis::latitude);
    IgrfDate date, again;
    if (parse_igrf_date(texts.date, date) == Status::good) {
        must(parse_igrf_date(igrf_date_text(date), again) == Status::good, "a date that cannot be read again");
        must(igrf_date_text(again) == igrf_date_text(date), "a date shown as another: " + igrf_date_text(date));
    }
    FuzzHost surroundings;
    IgrfRecord record;
    const Status status = calculate_igrf(texts, record, surroundings.host);
    must((status == Status::good) == (surroundings.dialogs.messages == 0), "a field without its one message");
    if (status != Status::good) return;
    must(record.computed && record.intensity > 0 && std::abs(record.inclination) <= 90, "a field that is none");
    const IgrfShown shown = igrf_shown(record);
    if (std::abs(parse_dms_text(shown.longitude, DmsAxis::longitude)) == 181) return; // rounded beyond what is taken
    const Status once_more =
        calculate_igrf({ shown.date, shown.longitude, shown.latitude, shown.elevation }, record, surroundings.host);
    must(once_more == Status::good, "a place shown that cannot be read again: " + shown.longitude + ", " + shown.latitude);
}
