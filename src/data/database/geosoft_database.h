#pragma once

#include "data/database/survey_database.h"

#include <memory>
#include <string>

/// Opens a Geosoft database by the vendor's library (`geosoft_library.h`), which is loaded when it is first needed and stays for
/// the life of the process, with one session. Null after one message, which where the library is missing says what to do instead.
///
/// The first of its channels is "LineNumber", which no database has: its column is always missing, and those of the channels
/// begin at 2. Faults carry the vendor's own words.
std::unique_ptr<SurveyDatabase> open_geosoft_database(const std::string & path, Host & host);
