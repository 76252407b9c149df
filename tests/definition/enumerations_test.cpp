#include "definition/enumerations.h"

#include <gtest/gtest.h>

namespace {

using Codes = std::vector<std::int32_t>;

struct ListCase {
    std::vector<ListItem> items;
    Codes codes;
    std::string first, last;
};

// The lists of data types share the codes of the first by position, so a text in the others is one place behind its code.
const ListCase list_cases[] = {
    { inversion_method_items(), { 0, 3, 6, 1, 2, 5, 4 }, "1: UBC Magnetic V3", "7: BrindleApp QVinv3D" },
    { inversion_mode_items(MethodFamily::gravity), { 0, 0, 2 }, "1: Tradeoff from line search", "3: Tradeoff from GCV analysis" },
    { data_type_items(0), { 0, 1, 30, 2, 5, 6, 20, 21, 22 }, "0:  Gravity", "22: Tz" },
    { data_type_items(1), { 0, 1, 30, 2, 5, 6, 20, 21, 22, 21 }, "NA", "22: Tz" },
    { optional_data_type_items(), { -1, 0, 1, 30, 2, 5, 6, 20, 21, 22 }, "NA", "22: Tz" },
};

struct TypeCase {
    std::int32_t method, code;
    const char *short_name, *matrix_file, *caption;
    DataClass data_class;
    FileClass files;
};

const TypeCase type_cases[] = {
    { 4, -1, "Gz", "QVinv3D.mtx", "Obs data", DataClass::gravity, FileClass::gravity },
    { 4, 1, "mag", "QVinv3D.mtx", "Mag data", DataClass::magnetic, FileClass::magnetic },
    { 4, 2, "Gzz", "QVinv3D_Gzz.mtx", "Gzz data", DataClass::gradient, FileClass::gravity },
    { 4, 7, "Gz", "QVinv3D.mtx", "Obs data", DataClass::gradient, FileClass::gravity },
    { 4, 20, "Tx", "QVinv3D_Tx.mtx", "Tx data", DataClass::magnetic, FileClass::magnetic },
    { 5, 100, "VMI", "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx", "VMI data", DataClass::magnetic, FileClass::gravity },
    { 6, 0, "Gz", "QVinv3D.mtx", "Grav data", DataClass::gravity, FileClass::magnetic },
};

}

TEST(list_items, given_a_list_then_its_texts_stand_for_their_codes)
{
    for (const ListCase & row : list_cases) {
        Codes codes;
        for (const ListItem & item : row.items) codes.push_back(item.code);
        EXPECT_EQ(codes, row.codes) << row.first;
        EXPECT_EQ(row.items.front().text, row.first);
        EXPECT_EQ(row.items.back().text, row.last);
    }
    EXPECT_EQ(data_type_items(1)[2].text, "1:  Magnetic"); // stores 30
}

TEST(data_type_of, given_a_code_then_its_names_and_classes_but_a_solver_of_one_field_sets_the_files)
{
    for (const TypeCase & row : type_cases) {
        const DataType & type = data_type_of(row.code);
        EXPECT_STREQ(type.short_name, row.short_name) << row.code;
        EXPECT_STREQ(type.matrix_file, row.matrix_file) << row.code;
        EXPECT_STREQ(type.caption, row.caption) << row.code;
        EXPECT_EQ(class_of_data_type(row.code), row.data_class) << row.code;
        InversionDefinition definition;
        definition.inversion_method = row.method;
        definition.obs_data_types[0] = row.code;
        EXPECT_EQ(file_class(definition), row.files) << row.code;
    }
}
