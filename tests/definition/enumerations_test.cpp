#include "definition/enumerations.h"

#include <gtest/gtest.h>

namespace {

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

// They share the codes of the first list by position, so a text stands one place behind its code.
TEST(data_type_items, given_the_second_list_then_each_text_stores_the_code_of_the_next)
{
    std::string stored;
    for (const ListItem & item : data_type_items(1)) stored += item.text + "=" + std::to_string(item.code) + "; ";
    EXPECT_EQ(stored, "NA=0; 0:  Gravity=1; 1:  Magnetic=30; 30: VRMI=2; 2:  Gzz=5; 5:  Gne=6; 6:  Guv=20; 20: Tx=21; "
                      "21: Ty=22; 22: Tz=21; ");
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
