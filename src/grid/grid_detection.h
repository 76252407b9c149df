#pragma once

#include <string>

/// True when the file is a grid: judged by its name and its first bytes. Point files (.xyz, .csv, .obs) never are.
bool is_grid_file(const std::string & path);
