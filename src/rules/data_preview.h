#pragma once

#include "rules/setup.h"

#include <string>
#include <vector>

/// The first lines of a data file as a table.
struct DataPreview {
    std::vector<std::string> names; ///< of the columns: those of the name line, or else "1", "2" and so on
    std::vector<std::string> uses;  ///< what the definition takes from each column: "X", "Y", "Sensor", ...; mostly empty
    std::vector<std::vector<std::string>> rows; ///< lines from the first data line on, in fields as the reader splits them
    std::vector<std::string> head;              ///< the lines before them, as they are
    std::string summary; ///< what the file is, in words: a grid's size and extent, a file that cannot be read
};

/// Looks at the file of slot 0 or 1, or at the grid of slots 1 to 5. Never fails: what cannot be read is told in the summary.
DataPreview preview_data_file(const Setup & setup, int slot);
