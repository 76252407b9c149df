#include "definition/enumerations.h"

#include <gtest/gtest.h>

namespace {

using Codes = std::vector<std::int32_t>;

Codes codes_of(const std::vector<ListItem> & items)
{
    Codes codes;
    for (const ListItem & item : items) codes.push_back(item.code);
    return codes;
}

struct ListCase {
    const char * name;
    std::vector<ListItem> items;
    Codes codes;
    std::string first, last;
};

// The lists of data types share the codes of the first by position, so a text in the others is one place behind its code.
const ListCase list_cases[] = {
    { "methods", inversion_method_items(), { 0, 3, 6, 1, 2, 5, 4 }, "1: UBC Magnetic V3", "7: BrindleApp QVinv3D" },
    { "modes_gravity",
      inversion_mode_items(MethodFamily::gravity),
      { 0, 0, 2 },
      "1: Tradeoff from line search",
      "3: Tradeoff from GCV analysis" },
    { "modes_own", inversion_mode_items(MethodFamily::own), { 0, 1, 2, 3, 4 }, "Normal 3D", "3D volume with edge correction" },
    { "types_0", data_type_items(0), { 0, 1, 30, 2, 5, 6, 20, 21, 22 }, "0:  Gravity", "22: Tz" },
    { "types_1", data_type_items(1), { 0, 1, 30, 2, 5, 6, 20, 21, 22, 21 }, "NA", "22: Tz" },
    { "optional_types", optional_data_type_items(), { -1, 0, 1, 30, 2, 5, 6, 20, 21, 22 }, "NA", "22: Tz" },
    { "positivity_ubc", positivity_items(false), { 0, 1, 2, 3 }, "Default", "All Positive" },
    { "depth_own", depth_weighting_type_items(MethodFamily::own), { 0, 1 }, "Simple", "Cell normalized" },
    { "tile_order_2", tile_order_items(2), { 0, 1 }, "Left to Right", "Right to Left" },
};

struct TypeCase {
    std::int32_t code;
    const char * short_name;
    const char * matrix_file;
    const char * caption;
    DataClass data_class;
    FileClass own_files; ///< of the own solver
};

const TypeCase type_cases[] = {
    { -1, "Gz", "QVinv3D.mtx", "Obs data", DataClass::gravity, FileClass::gravity },
    { 0, "Gz", "QVinv3D.mtx", "Grav data", DataClass::gravity, FileClass::gravity },
    { 1, "mag", "QVinv3D.mtx", "Mag data", DataClass::magnetic, FileClass::magnetic },
    { 2, "Gzz", "QVinv3D_Gzz.mtx", "Gzz data", DataClass::gradient, FileClass::gravity },
    { 7, "Gz", "QVinv3D.mtx", "Obs data", DataClass::gradient, FileClass::gravity },
    { 20, "Tx", "QVinv3D_Tx.mtx", "Tx data", DataClass::magnetic, FileClass::magnetic },
    { 100, "VMI", "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx", "VMI data", DataClass::magnetic, FileClass::magnetic },
};

}

TEST(list_items, given_a_list_then_its_texts_stand_for_their_codes)
{
    for (const ListCase & row : list_cases) {
        EXPECT_EQ(codes_of(row.items), row.codes) << row.name;
        EXPECT_EQ(row.items.front().text, row.first) << row.name;
        EXPECT_EQ(row.items.back().text, row.last) << row.name;
    }
    EXPECT_EQ(data_type_items(1)[2].text, "1:  Magnetic"); // stores 30
}

TEST(data_type_of, given_a_code_then_its_names_and_classes)
{
    for (const TypeCase & row : type_cases) {
        const DataType & type = data_type_of(row.code);
        EXPECT_STREQ(type.short_name, row.short_name) << row.code;
        EXPECT_STREQ(type.matrix_file, row.matrix_file) << row.code;
        EXPECT_STREQ(type.caption, row.caption) << row.code;
        EXPECT_EQ(class_of_data_type(row.code), row.data_class) << row.code;
        InversionDefinition definition;
        definition.obs_data_types[0] = row.code;
        EXPECT_EQ(file_class(definition), row.own_files) << row.code;
    }
}

TEST(file_class, given_a_solver_of_one_field_then_the_data_type_has_no_say)
{
    InversionDefinition definition;
    definition.inversion_method = 5;
    EXPECT_EQ(file_class(definition), FileClass::gravity);
    definition.inversion_method = 6;
    definition.obs_data_types[0] = 0;
    EXPECT_EQ(file_class(definition), FileClass::magnetic);
    EXPECT_EQ(inversion_method_of(7).code, 4);
    EXPECT_EQ(inversion_method_of(-1).code, 4);
}
