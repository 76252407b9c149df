#include "app/file_settings.h"
#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text_file.h"
#include "utilities/transform_file.h"

namespace {

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
            write_transform_file(scratch_folder() + "\\written.crd", transform);
            const Status again = read_transform_file(scratch_folder() + "\\written.crd", transform, dialogs);
            must(again == Status::good, "a saved transform that cannot be read");
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
