#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A field of the data records of an ASEG-GDF2 pair.
struct AsegField {
    std::string name;
    std::int32_t count = 1; ///< elements of an array
    std::size_t width = 0;  ///< bytes of one element
    std::size_t begin = 0;  ///< the first byte in the record, from 0
    bool is_text = false;
    std::string null_text; ///< what stands for no value; empty where nothing does
    double null_number = 0;
    bool has_null_number = false; ///< numbers are compared as such, however many digits they have

    std::size_t size() const { return width * static_cast<std::size_t>(count); }
};

/// What the *.dfn says about the records of the *.dat.
struct AsegDefinition {
    std::vector<AsegField> fields; ///< in the order of the file, without gaps
    std::size_t record_length = 0;
    bool has_comments = false; ///< records that begin with "COMM" are comments
};

/// Reads the definition of data records; records of other kinds are passed over. Fails with a `FileFault` that names the line and
/// what cannot be understood there.
AsegDefinition read_aseg_definition(const std::string & path);
