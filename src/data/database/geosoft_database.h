#pragma once

#include "data/database/survey_database.h"

#include <memory>
#include <string>

/// Opens a Geosoft database by the vendor's library, which is loaded when it is first needed and stays for the life of the
/// process. Null after one message, which where the library is missing says what to do instead.
std::unique_ptr<SurveyDatabase> open_geosoft_database(const std::string & path, Host & host);
