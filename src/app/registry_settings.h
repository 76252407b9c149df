#pragma once

#include <string>
#include <vector>

// The user's settings in the registry, where there is one.

/// Reads a value of the application's section; `start` when there is none.
std::string read_registry(const std::string & application, const std::string & section, const std::string & name,
                          const std::string & start);
/// Writes it. False when it could not be kept.
bool write_registry(const std::string & application, const std::string & section, const std::string & name,
                    const std::string & text);
/// The names of the section's values.
std::vector<std::string> registry_names(const std::string & application, const std::string & section);
