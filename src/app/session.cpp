#include "app/session.h"

#include "form/main_form.h"
#include "rules/apply_definition.h"

#include <algorithm>

void start_session(Session & session, Host & host)
{
    session.setup.form = make_main_form();
    initialise_inversion_form(session.setup, host);
}

void add_file_to_MRU(Session & session, const std::string & path, Host & host)
{
    auto & files = session.recent_files;
    files.erase(std::remove(files.begin(), files.end(), path), files.end());
    files.insert(files.begin(), path);
    if (files.size() > most_recent_files) files.pop_back();
    for (std::size_t i = 0; i < files.size(); ++i)
        static_cast<void>(
            host.settings.write("ZEB_QVinv3d_setup", "MRU" + std::to_string(i + 1), files[i])); // a lost list costs nothing else
}
