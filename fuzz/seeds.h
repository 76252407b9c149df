#pragma once

#include <string>
#include <vector>

/// Inputs that a reader takes, made of the project's files and tables of cases.
std::vector<std::string> seeds_of(const std::string & reader);

/// Writes them into a folder, a file each, under names that stay the same.
void write_seeds(const std::string & reader, const std::string & folder);
