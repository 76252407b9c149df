#pragma once

#include "data/database/survey_database.h"

#include <memory>
#include <string>

/// True when the first record of a text is the name of a line ("Line 100101"); comments may stand before it.
bool is_line_structured(const std::string & path);

/// Opens a text whose readings stand in lines, each behind a record with its name. The columns are the fields of a reading, and
/// one more, "Line", with the name of the line. Fails with a `FileFault` that names the file, the line and the cure.
std::unique_ptr<SurveyDatabase> open_xyz_database(const std::string & path, const TextLines & text_lines);
