#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "grid/grid_detection.h"
#include "grid/grid_files.h"
#include "grid/grid_formats.h"
#include "grid/image_registration.h"

#include <gtest/gtest.h>

namespace {

/// A picture of 3 by 2 pixels with 24 bits each.
std::string picture()
{
    return "BM" + little_endian(54 + 24, 0, 54, 40, 3, 2, std::int16_t{ 1 }, std::int16_t{ 24 }, 0, 24, 0, 0, 0, 0) +
           std::string(24, '\x40');
}

}

TEST(read_image_registration, given_a_file_beside_the_picture_then_its_pixels_lie_where_it_says)
{
    const std::string tab =
        "!table\n!version 300\nDefinition Table\n  File \"p.bmp\"\n  Type \"RASTER\"\n  (95,230) (0,0) Label \"Pt 1\",\n"
        "  (125,230) (3,0) Label \"Pt 2\",\n  (95,190) (0,2) Label \"Pt 3\"\n  CoordSys NonEarth Units \"m\"\n";
    const std::string world = "10\r\n0\r\n0\r\n-20\r\n100\r\n220\r\n"; // the centre of the upper left pixel
    const std::array<std::string, 3> cases[] = {
        // the file beside it, its content, and the fault; where there is none, the edges are 95, 125, 190 and 230
        { "p.bpw", world, "" },
        { "p.BPW", world, "" },
        { "p.bmpw", world, "" },
        { "p.wld", world, "" },
        { "p.ers", ers_header, "" },
        { "p.bmp.ers", ers_header, "" },
        { "p.tab", tab, "" },
        { "p.bpw", with(world, "-20", "20"), "world file p.bpw: its pixel size is not above 0" },
        { "p.bpw", with(world, "\n0\r\n0", "\n1\r\n0"),
          "world file p.bpw: it turns the picture, and only pictures along the axes can be used" },
        { "p.bpw", with(world, "220", "1e30"),
          "world file p.bpw: it places the picture so far off that its pixels have no size" },
        { "p.bpw", "10\n0\n", "world file p.bpw: it does not hold six numbers" },
        { "p.ers", with(ers_header, "NrOfLines = 2", "NrOfLines = 4"),
          "ERMapper header p.ers: it is of a raster of another size" },
        { "p.tab", with(tab, "(95,190)", "(115,190)"),
          "MapInfo table p.tab: it turns or bends the picture, and only pictures along the axes "
          "can be used" },
        { "p.txt", "", "it has no position: no world file, ERMapper header or MapInfo table lies beside it" },
    };
    for (const auto & [side, content, fault] : cases) {
        SCOPED_TRACE(side + fault);
        const TemporaryFolder folder;
        folder.write(side, content);
        RecordedDialogs dialogs;
        GridHeader header;
        header.file_name = folder.write("p.bmp", picture());
        const Status status = detect_grid_file(header, dialogs);
        EXPECT_EQ(header.fault, fault);
        EXPECT_EQ(status == Status::good, fault.empty());
        if (!fault.empty()) continue;
        EXPECT_EQ(header.format->code, 15);
        EXPECT_EQ(file_kind(header), FileKind::image);
        EXPECT_EQ((std::array{ header.limits.west, header.limits.east, header.limits.south, header.limits.north }),
                  (std::array{ 95.0, 125.0, 190.0, 230.0 }));
        EXPECT_EQ((std::array{ header.cell_size_x, header.cell_size_y }), (std::array{ 10.0, 20.0 }));
        EXPECT_EQ(header.band_names, (std::vector<std::string>{ "Band 1", "Band 2", "Band 3" }));
        EXPECT_FALSE(is_grid_file(header.file_name));
    }
}
