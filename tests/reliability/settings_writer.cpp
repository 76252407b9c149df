// Writes settings as a program does that keeps them: settings_writer FILE SECTION NAME VALUE [COUNT]. With a count it writes that
// many names, with their numbers behind. Exits 1 when one could not be kept.

#include "app/file_settings.h"
#include "support/paths.h"

#include <cstdlib>

int main(int count, char ** arguments)
{
    if (count < 5) return 2;
    FileSettings settings(definition_path(std::filesystem::absolute(arguments[1])));
    if (count == 5) return settings.write(arguments[2], arguments[3], arguments[4]) ? 0 : 1;
    for (int i = 1; i <= std::atoi(arguments[5]); ++i)
        if (!settings.write(arguments[2], arguments[3] + std::to_string(i), arguments[4])) return 1;
    return 0;
}
