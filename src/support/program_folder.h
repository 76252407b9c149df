#pragma once

#include <filesystem>

/// The folder of the running program, links resolved; empty when the system does not tell.
std::filesystem::path program_folder();
