#include "data/database/survey_database.h"

#include "data/database/aseg_database.h"
#include "data/database/geosoft_database.h"
#include "data/database/xyz_database.h"
#include "support/fault.h"
#include "support/paths.h"
#include "support/text.h"

DatabaseKind database_kind(const std::string & path)
{
    const std::string extension = upper_case(file_extension_of_path(trim(path)));
    if (extension == "GDB") return DatabaseKind::geosoft;
    if (extension == "DFN") return DatabaseKind::aseg_gdf2;
    if (extension != "XYZ") return DatabaseKind::none;
    try {
        return is_line_structured(path) ? DatabaseKind::line_xyz : DatabaseKind::none;
    } catch (const Fault &) {
        return DatabaseKind::none;
    }
}

std::unique_ptr<SurveyDatabase> open_database(const std::string & path, const TextLines & text_lines, Host & host)
{
    const auto refuse = [&host](const std::string & message) {
        host.dialogs.message(message);
        return nullptr;
    };
    if (find_file(path).empty()) return refuse("The specified data file does not exist");
    try {
        switch (database_kind(path)) {
        case DatabaseKind::geosoft:
            return open_geosoft_database(path, host);
        case DatabaseKind::aseg_gdf2:
            return open_aseg_database(path);
        case DatabaseKind::line_xyz:
            return open_xyz_database(path, text_lines);
        case DatabaseKind::none:
            break;
        }
        return refuse("The database could not be opened: " + path + " is none");
    } catch (const Fault & fault) {
        return refuse(std::string("The database could not be opened: ") + fault.what());
    }
}
