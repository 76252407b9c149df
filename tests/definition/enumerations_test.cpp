#include "definition/enumerations.h"
#include "fakes/case_table.h"

#include <gtest/gtest.h>

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
    const char * const classes[] = { "gravity", "magnetic", "gradient" };
    for (const auto & [method, code, name, matrix_file, caption, data_class, files] : cases_of<7>("data_types.cases")) {
        const DataType & type = data_type_of(number_in(code));
        EXPECT_EQ(type.short_name, name) << code;
        EXPECT_EQ(type.matrix_file, matrix_file) << code;
        EXPECT_EQ(type.caption, caption) << code;
        EXPECT_EQ(classes[static_cast<int>(class_of_data_type(number_in(code)))], data_class) << code;
        InversionDefinition definition;
        definition.inversion_method = number_in(method);
        definition.obs_data_types[0] = number_in(code);
        EXPECT_EQ(classes[static_cast<int>(file_class(definition))], files) << code;
    }
}
