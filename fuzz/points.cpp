#include "fuzz/point_reading.h"
#include "fuzz/readers.h"
#include "fuzz/surroundings.h"
#include "rules/data_columns.h"

void read_points(Input input)
{
    LocationSource source = take_source(input);
    const ReadShares shares{ std::size_t{ input.take_byte() } + 1, input.take_byte() % 3 + 1 };
    source.file_name = scratch_file("points.csv", input.text);
    const PointReading whole(source, ReadMode::store, { std::size_t{ 1 } << 20, 1 });
    const PointReading shared(source, ReadMode::store, shares);
    const PointReading counted(source, ReadMode::statistics, shares);
    must(whole.status == shared.status, "a read that depends on its blocks");
    check_counted(counted, shared);
    if (whole.status != Status::good) return;
    check_lists(source, whole.data);
    must(same_points(whole.data, shared.data) && same_limits(whole.statistics, shared.statistics),
         "points that depend on blocks");
}

void read_columns(Input input)
{
    Input choices{ input.text.substr(0, 3) };
    input.text.remove_prefix(choices.text.size());
    show_columns(scratch_file("columns.csv", input.text), choices);
    column_names_in(std::string(input.text));
}
