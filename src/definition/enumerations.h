#pragma once

#include "definition/definition.h"
#include "form/form.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// The families of solvers share inputs, scripts and file names.
enum class MethodFamily { magnetic, gravity, own };

/// One solver: a row of the method table.
struct InversionMethod {
    std::int32_t code;
    const char * text; ///< in `Combo_inversion_method`
    MethodFamily family;
};

/// The seven methods in the order of their list, which is not that of their codes.
std::span<const InversionMethod> inversion_methods();
/// The row of a code; an unknown code is the own solver's, as it is when read from a file.
const InversionMethod & inversion_method_of(std::int32_t code);

/// The class of a data type, which decides the default parameters.
enum class DataClass { gravity, magnetic, gradient };

/// One data type: short name, sensitivity matrix file of the own solver, caption of its column.
struct DataType {
    std::int32_t code;
    const char * short_name;
    const char * matrix_file;
    const char * caption;
    const char * list_text; ///< in the lists of the form; null for a type that only a definition file can bring
};

/// The row of a type code; one that is not in the table reads as "Gz", "QVinv3D.mtx", "Obs data".
const DataType & data_type_of(std::int32_t code);
/// Magnetic for 1 and from 20 up, gravity for 0 and below, gradient for the rest.
DataClass class_of_data_type(std::int32_t code);

/// Which of gravity or magnetic file names an inversion uses.
enum class FileClass { gravity, magnetic };
/// By the family of the method; for the own solver by the first data type: gravity when it is not 100, not 1 and below 20.
FileClass file_class(const InversionDefinition & definition);

// The items of the lists, with the codes that choosing them stores.
std::vector<ListItem> inversion_method_items();
std::vector<ListItem> inversion_mode_items(MethodFamily family);
/// list: 0 to 2. Lists 1 and 2 start with "NA" but take the codes of list 0 by position, so each text stands one place behind its
/// code.
std::vector<ListItem> data_type_items(int list);
std::vector<ListItem> optional_data_type_items();
std::vector<ListItem> depth_weighting_type_items(MethodFamily family);
std::vector<ListItem> positivity_items(bool own_solver);
std::vector<ListItem> rock_property_items();
std::vector<ListItem> smoothness_items();
std::vector<ListItem> alpha_method_items();
std::vector<ListItem> wavelet_items();
std::vector<ListItem> background_items();
std::vector<ListItem> data_file_type_items();
std::vector<ListItem> sensor_height_items();
std::vector<ListItem> forward_model_items();
std::vector<ListItem> tile_order_items(int list);
