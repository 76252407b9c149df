#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "grid/grid_detection.h"
#include "grid/grid_files.h"
#include "grid/grid_formats.h"
#include "grid/grid_preparation.h"
#include "grid/grid_sampler.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

struct FormatCase {
    const char * file;
    std::string content;
    const char * format;
    const char * registration = "node";
    const char * null_rule = "";
};

const std::string centres = with(with(arc_text, "xllcorner 95", "xllcenter 100"), "yllcorner 190", "yllcenter 200");

const FormatCase format_cases[] = {
    { "a.grd", surfer_text, "Surfer 6 text grid", "node", "values of 1.70141E+38 and above (1.70141E+38)" },
    { "text.dat", surfer_text, "Surfer 6 text grid" },
    { "b.grd", surfer_6, "Surfer 6 binary grid" },
    { "c.grd", surfer_7, "Surfer 7 binary grid", "node", "the header's blank value and values of 1.70141E+38 and above (-99)" },
    { "d.asc", arc_text, "Arc ASCII grid", "cell", "NODATA_value of the header, else -9999 (-9999)" },
    { "default.asc", with(arc_text, "NODATA_value -9999\n", ""), "Arc ASCII grid", "cell" },
    { "e.asc", centres, "Arc ASCII grid" },
    { "mark.asc", "\xEF\xBB\xBF" + arc_text, "Arc ASCII grid", "cell" },
    { "f.ers", ers_header, "ERMapper", "cell", "NullCellValue of the header (-99.5)" },
    { "meters.ers", with(with(ers_header, "Eastings", "MetersX"), "Northings", "MetersY"), "ERMapper", "cell" },
    { "cell.ers",
      with(ers_header, "Eastings = 95\n\t\t\tNorthings = 230\n\t\tRegistrationCoord End\n",
           "Eastings = 115\n\t\t\tNorthings = 210\n\t\tRegistrationCoord End\n\t\tRegistrationCellX = 2\n"
           "\t\tRegistrationCellY = 1\n"),
      "ERMapper", "cell" },
    { "g.nc", netcdf(), "netCDF", "node", "_FillValue or missing_value of the variable (-7)" },
    { "degrees.nc", netcdf("lon", "lat"), "netCDF" },
    { "south.nc", netcdf("x", "y", { 220, 200 }, { 1, 2, -7, 4, 5, 6 }), "netCDF" },
    { "h.gxf", gxf("4 5 6\n1 2 -1e12\n", "#DUMMY\n-1e12\n"), "GXF", "node",
      "#DUMMY of the header and ! in packed values (-1000000000000)" },
    { "dummy_is_a_prefix.gxf", gxf("-6 -5 -4\n-9 -8 -1\n", "#DUMMY\n-1\n#TRANSFORM\n1 10\n"), "GXF" },
    { "short.gxf", with(with(gxf("4 5 6\n1 2 -7\n", "#DUMM\n-7\n"), "#POINTS", "#POIN"), "#RWSEPARATION", "#RWSE"), "GXF" },
    { "rows_from_north.gxf", gxf("1 2 *\n4 5 6\n", "#SENSE\n-2\n#DUMMY\n*\n"), "GXF" },
    { "columns.gxf", gxf("4 1\n5 2\n6 -1e32\n", "#SENSE\n-1\n", "2\n#ROWS\n3", "20\n#RWSEPARATION\n10"), "GXF" },
    { "from_the_right.gxf", gxf("-1e32 2 1\n6 5 4\n", "#SENSE\n3\n"), "GXF" },
    { "packed.gxf", gxf("%(%)%*\n%%%&!!\n", "#GTYPE\n2\n#TRANSFORM\n1 1\n"), "GXF" },
    { "float.grd", geosoft_header(4, 2) + geosoft_values, "Geosoft binary grid", "node",
      "the dummy of the stored type (-1E+32)" },
    { "packed.grd", geosoft_packed(), "Geosoft binary grid" },
    { "short.grd",
      geosoft_header(2, 1, 1, 1, 10) + little_endian(std::int16_t{ 30 }, std::int16_t{ 40 }, std::int16_t{ 50 },
                                                     std::int16_t{ 0 }, std::int16_t{ 10 }, std::int16_t{ -32767 }),
      "Geosoft binary grid" },
    { "columns.grd", geosoft_header(8, 2, -1) + little_endian(4.0, 1.0, 5.0, 2.0, 6.0, -1e32), "Geosoft binary grid" },
};

void write_ers_data(const TemporaryFolder & folder)
{
    for (const char * name : { "f", "meters", "cell", "rotated", "unplaced", "no_rows", "negative" })
        folder.write(name, ers_values);
    folder.write("cut", ers_values.substr(1));
    folder.write("cut.hdr", "ENVI\nsamples = 3\nlines = 2\nbands = 1\ndata type = 4\nbyte order = 0\n"
                            "map info = {Arbitrary, 1, 1, 95, 230, 10, 20, 0, North}\n");
}

/// The values at the centres of the cells, and half a cell further out at the south west corner.
std::vector<double> sampled(const GridHeader & header)
{
    const std::vector<double> x = { 100, 110, 120, 100, 110, 120, 95 }, y = { 220, 220, 220, 200, 200, 200, 190 };
    std::vector<double> values(x.size());
    GridSampler(header).sample(x, y, values);
    return values;
}

}

TEST(detect_grid_file, given_one_grid_in_each_format_then_edges_values_and_nulls_are_the_same)
{
    const TemporaryFolder folder;
    write_ers_data(folder);
    for (const FormatCase & c : format_cases) {
        SCOPED_TRACE(c.file);
        RecordedDialogs dialogs;
        WorkGrid grid(folder.write(c.file, c.content));
        GridLimits limits;
        ASSERT_EQ(grid.prepare(limits, dialogs), Status::good) << (dialogs.messages.empty() ? "" : dialogs.messages[0]);
        const GridHeader & header = grid.header();
        EXPECT_EQ(std::string(header.format->name), c.format);
        EXPECT_EQ(header.registration == GridRegistration::node ? "node" : "cell", std::string(c.registration));
        EXPECT_TRUE(*c.null_rule == '\0' || null_rule_text(header) == c.null_rule + std::string("; any value at or below -1E+30"))
            << null_rule_text(header);
        EXPECT_EQ((std::array{ header.columns, header.rows }), (std::array{ 3, 2 }));
        EXPECT_EQ((std::array{ header.cell_size_x, header.cell_size_y }), (std::array{ 10.0, 20.0 }));
        EXPECT_EQ((std::array{ limits.west, limits.east, limits.south, limits.north }),
                  (std::array{ 95.0, 125.0, 190.0, 230.0 }));
        EXPECT_EQ((std::array{ header.minimum, header.maximum }), (std::array{ 1.0, 6.0 }));
        EXPECT_EQ(sampled(header), (std::vector{ 1.0, 2.0, -1e32, 4.0, 5.0, 6.0, 4.0 }));
        EXPECT_TRUE(is_grid_file(folder.file(c.file)));
    }
}

TEST(detect_grid_file, given_a_grid_that_cannot_be_used_then_the_reason_names_what_is_wrong)
{
    const TemporaryFolder folder;
    write_ers_data(folder);
    const std::string failed = "Failed to determine grid format", invalid = "The specified grid is invalid";
    const std::string cut_short = "it is cut short: it holds fewer values than its header says";
    const std::string rotated = "it is rotated, and only grids along the axes can be read",
                      no_size = "its cell size is not above 0";
    const std::array<std::string, 4> cases[] = {
        { "cut.ers", ers_header, failed, cut_short },
        { "gone.ers", ers_header, failed, "its data file gone is missing" },
        { "unplaced.ers", with(with(ers_header, "Eastings", "E"), "Northings", "N"), failed,
          "it has no position: neither coordinates nor cell sizes are given" },
        { "rotated.ers", with(ers_header, "0:0:0.0", "0:30:0.0"), failed, rotated },
        { "negative.ers", with(ers_header, "Xdimension = 10", "Xdimension = -10"), invalid, no_size },
        { "swapped.grd", with(surfer_text, "200 220", "220 200"), invalid, no_size },
        { "negative.asc", with(with(arc_text, "dx 10\n", "cellsize -10\n"), "dy 20\n", ""), invalid, no_size },
        { "cut.img", ers_values.substr(1), failed, cut_short }, // its header is longer than all its values
        { "huge.grd", with(surfer_text, "3 2", "30000 20000"), failed, cut_short },
        { "cut.nc", netcdf().substr(0, netcdf().size() - 4), failed, cut_short },
        { "uneven.nc", netcdf("x", "y", { 200, 220 }, { 4, 5, 6, 1, 2, -7 }, { 100, 111, 120 }), failed,
          "its coordinates do not run in equal steps" },
        { "N46E009.hgt", std::string(2UL * 1201 * 1201 - 2, '\0'), failed, "it holds fewer or more values than a tile" },
        { "no_cells.gxf", gxf("", "", "0\n#ROWS\n2"), failed, "it has no cells" },
        { "no_step.gxf", with(gxf("1 2 3 4 5 6"), "#RWSEPARATION", "#OTHER"), failed, "its header gives no #RWSEPARATION" },
        { "rotated.gxf", gxf("1 2 3 4 5 6", "#ROTATION\n30\n"), failed, rotated },
        { "short.grd", geosoft_header(4, 2) + geosoft_values.substr(1), failed, cut_short },
        { "rotated.grd", geosoft_header(4, 2, 1, 0, 1, 30) + geosoft_values, failed, rotated },
        { "colour.grd", geosoft_header(4, 3) + geosoft_values, failed,
          "its values are of a type that cannot be read (colours?)" },
        { "wide.grd", geosoft_packed().replace(8, 4, little_endian(1 << 24)), failed, cut_short },
        { "block.grd", geosoft_packed().substr(0, geosoft_packed().size() - 1), failed,
          "it is cut short: a block of values lies outside the file" },
    };
    for (const auto & [file, content, what, why] : cases) {
        SCOPED_TRACE(file);
        RecordedDialogs dialogs;
        WorkGrid grid(folder.write(file, content));
        GridLimits limits;
        EXPECT_EQ(grid.prepare(limits, dialogs), Status::bad);
        EXPECT_EQ(dialogs.messages, Texts{ what + ": " + folder.file(file) + ": " + why });
        EXPECT_FALSE(limits.are_set());
        EXPECT_EQ(grid.header().work_name, "");
        EXPECT_FALSE(is_grid_file(folder.file(file)));
    }
}

TEST(detect_grid_file, given_points_then_no_ending_makes_them_a_grid_and_none_is_said_to_be_wrong)
{
    const TemporaryFolder folder;
    const std::string lattice = "0 0 1\n10 0 2\n0 10 3\n10 10 4\n";
    for (const char * file : { "a.grd", "a.dat", "a.asc", "a.gxf", "a.ers", "a.hgt", "a.tif", "a.png", "a.nc" }) {
        RecordedDialogs dialogs;
        GridHeader header;
        header.file_name = folder.write(file, lattice);
        EXPECT_EQ(detect_grid_file(header, dialogs), Status::bad) << file;
        EXPECT_EQ(file_kind(header), FileKind::points) << file;
        EXPECT_EQ(header.fault, "") << file;
        EXPECT_EQ(dialogs.messages, Texts{}) << file;
    }
    for (const char * file : { "b.xyz", "b.CSV", "b.obs" }) EXPECT_FALSE(is_grid_file(folder.write(file, surfer_text))) << file;
}

TEST(detect_grid_file, given_no_name_then_nothing_is_wrong_and_given_no_file_then_one_message)
{
    RecordedDialogs dialogs;
    GridHeader header;
    EXPECT_EQ(detect_grid_file(header, dialogs), Status::good);
    header.file_name = " gone.grd ";
    EXPECT_EQ(detect_grid_file(header, dialogs), Status::bad);
    EXPECT_EQ(dialogs.messages, Texts{ "The specified image file : gone.grd does not exist" });
}
