#include "definition/enumerations.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::int32_t own_solver_code = 4;

constexpr InversionMethod methods[] = {
    { 0, "1: UBC Magnetic V3", MethodFamily::magnetic },
    { 3, "2: UBC Magnetic V4", MethodFamily::magnetic },
    { 6, "3: UBC Magnetic V5", MethodFamily::magnetic },
    { 1, "4: UBC Gravity V2", MethodFamily::gravity },
    { 2, "5: UBC Gravity V3", MethodFamily::gravity },
    { 5, "6: UBC Gravity V5", MethodFamily::gravity },
    { own_solver_code, "7: BrindleApp QVinv3D", MethodFamily::own },
};

constexpr DataType data_types[] = {
    { 0, "Gz", "QVinv3D.mtx", "Grav data", "0:  Gravity" },
    { 1, "mag", "QVinv3D.mtx", "Mag data", "1:  Magnetic" },
    { 30, "VRMI", "QVinv3D_VRMI.mtx", "VRMI data", "30: VRMI" },
    { 2, "Gzz", "QVinv3D_Gzz.mtx", "Gzz data", "2:  Gzz" },
    { 5, "Gne", "QVinv3D_Gne.mtx", "Gne data", "5:  Gne" },
    { 6, "Guv", "QVinv3D_Guv.mtx", "Guv data", "6:  Guv" },
    { 20, "Tx", "QVinv3D_Tx.mtx", "Tx data", "20: Tx" },
    { 21, "Ty", "QVinv3D_Ty.mtx", "Ty data", "21: Ty" },
    { 22, "Tz", "QVinv3D_Tz.mtx", "Tz data", "22: Tz" },
    // Only from a definition file: no list shows these.
    { 3, "VKa", "QVinv3D_VKa.mtx", "VKa data", nullptr },
    { 4, "VKc", "QVinv3D_VKc.mtx", "VKc data", nullptr },
    { 10, "Gxx", "QVinv3D_Gxx.mtx", "Obs data", nullptr },
    { 11, "Gyy", "QVinv3D_Gyy.mtx", "Obs data", nullptr },
    { 12, "Gzz", "QVinv3D_Gzz.mtx", "Obs data", nullptr },
    { 13, "Gxy", "QVinv3D_Gxy.mtx", "Obs data", nullptr },
    { 14, "Gxz", "QVinv3D_Gxz.mtx", "Obs data", nullptr },
    { 15, "Gyz", "QVinv3D_Gyz.mtx", "Obs data", nullptr },
    { 100, "VMI", "QVinv3D_Tx.mtx|QVinv3D_Ty.mtx|QVinv3D_Tz.mtx", "VMI data", nullptr },
};

constexpr DataType unknown_data_type = { -1, "Gz", "QVinv3D.mtx", "Obs data", nullptr };

/// The types that lists show, in their order, with their own codes.
std::vector<ListItem> listed_data_types()
{
    std::vector<ListItem> items;
    for (const DataType & type : data_types)
        if (type.list_text != nullptr) items.push_back({ type.list_text, type.code });
    return items;
}

/// Items whose code is their position.
std::vector<ListItem> numbered(std::initializer_list<const char *> texts)
{
    std::vector<ListItem> items;
    for (const char * text : texts) items.push_back({ text, static_cast<std::int32_t>(items.size()) });
    return items;
}

}

std::span<const InversionMethod> inversion_methods() { return methods; }

const InversionMethod & inversion_method_of(std::int32_t code)
{
    const auto found = std::ranges::find(methods, code, &InversionMethod::code);
    return found == std::ranges::end(methods) ? *std::ranges::find(methods, own_solver_code, &InversionMethod::code) : *found;
}

const DataType & data_type_of(std::int32_t code)
{
    const auto found = std::ranges::find(data_types, code, &DataType::code);
    return found == std::ranges::end(data_types) ? unknown_data_type : *found;
}

DataClass class_of_data_type(std::int32_t code)
{
    if (code == 1 || code >= 20) return DataClass::magnetic;
    return code <= 0 ? DataClass::gravity : DataClass::gradient;
}

FileClass file_class(const InversionDefinition & definition)
{
    const MethodFamily family = inversion_method_of(definition.inversion_method).family;
    const bool magnetic = family == MethodFamily::own ? class_of_data_type(definition.obs_data_types[0]) == DataClass::magnetic
                                                      : family == MethodFamily::magnetic;
    return magnetic ? FileClass::magnetic : FileClass::gravity;
}

std::vector<ListItem> inversion_method_items()
{
    std::vector<ListItem> items;
    for (const InversionMethod & method : methods) items.push_back({ method.text, method.code });
    return items;
}

std::vector<ListItem> inversion_mode_items(MethodFamily family)
{
    if (family != MethodFamily::own)
        return {
            { "1: Tradeoff from line search", 0 },
            { "2: Tradeoff is user defined", 0 }, // on purpose: once stored, it cannot be told from the first
            { "3: Tradeoff from GCV analysis", 2 },
        };
    return numbered({ "Normal 3D", "Equivalent Source", "Apparent den/susc", "Surface + Apparent den/susc",
                      "3D volume with edge correction" });
}

std::vector<ListItem> data_type_items(int list)
{
    std::vector<ListItem> items = listed_data_types();
    if (list == 0) return items;
    // One more text in front, the codes where they were: each text stands for the code of the next one. The position
    // behind the last code has always stood for 21.
    const std::vector<ListItem> first_list = items;
    items.insert(items.begin(), { "NA", 0 });
    for (std::size_t i = 0; i < first_list.size(); ++i) items[i].code = first_list[i].code;
    items.back().code = 21;
    return items;
}

std::vector<ListItem> optional_data_type_items()
{
    std::vector<ListItem> items = listed_data_types();
    items.insert(items.begin(), { "NA", -1 });
    return items;
}

std::vector<ListItem> depth_weighting_type_items(MethodFamily family)
{
    return family == MethodFamily::own ? numbered({ "Simple", "Cell normalized" }) : numbered({ "Depth", "Distance" });
}

std::vector<ListItem> positivity_items(bool own_solver)
{
    std::vector<ListItem> items = numbered({ "Default", "All Negative", "Unconstrained", "All Positive", "Apply sLog scale" });
    if (!own_solver) items.pop_back();
    return items;
}

std::vector<ListItem> rock_property_items() { return numbered({ "Both reference and bounds", "Reference only", "Bounds only" }); }

std::vector<ListItem> smoothness_items() { return numbered({ "Smallest term Only", "Derivative and Smallest" }); }

std::vector<ListItem> alpha_method_items() { return numbered({ "Alpha", "Length" }); }

std::vector<ListItem> wavelet_items()
{
    return numbered({ "daub1", "daub2", "daub3", "daub4", "daub5", "daub6", "symm4", "symm5", "symm6", "null" });
}

std::vector<ListItem> background_items() { return numbered({ "None", "Terrain correlation", "Specified value" }); }

std::vector<ListItem> data_file_type_items() { return numbered({ "Point Data", "Grid Data" }); }

std::vector<ListItem> sensor_height_items() { return numbered({ "Height above topo", "Actual Sensor elevation" }); }

std::vector<ListItem> forward_model_items()
{
    return numbered({ "Refined forward model", "Coarse forward model", "No forward model" });
}

std::vector<ListItem> tile_order_items(int list)
{
    static const std::array<std::vector<ListItem>, 3> lists = { numbered({ "By Column", "By Row" }),
                                                                numbered({ "Bottom to Top", "Top to Bottom" }),
                                                                numbered({ "Left to Right", "Right to Left" }) };
    return lists.at(static_cast<std::size_t>(list));
}
