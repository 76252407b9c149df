#pragma once

#include "data/database/survey_database.h"

#include <memory>
#include <string>

/// Opens an ASEG-GDF2 pair by its definition, *.dfn, beside which the *.dat lies: fields of fixed width, one column each, with
/// their nulls as "*". Fails with a `FileFault` that names the file, the line and the cure.
std::unique_ptr<SurveyDatabase> open_aseg_database(const std::string & path);
