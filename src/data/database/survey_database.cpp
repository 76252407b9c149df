#include "data/database/survey_database.h"

#include "data/database/geosoft_database.h"
#include "support/paths.h"
#include "support/text.h"

DatabaseKind database_kind(const std::string & path)
{
    return same_text(file_extension_of_path(path), "gdb") ? DatabaseKind::geosoft : DatabaseKind::none;
}

std::unique_ptr<SurveyDatabase> open_database(const std::string & path, const TextLines &, Host & host)
{
    if (database_kind(path) == DatabaseKind::geosoft) return open_geosoft_database(path, host);
    host.dialogs.message("The database could not be opened: " + path);
    return nullptr;
}
