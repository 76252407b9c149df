#include "host/debug_log.h"

#include "support/paths.h"
#include "support/pattern.h"

#include <cstdio>
#include <ctime>
#include <fstream>

namespace {

constexpr const char * program_title = "3D Mag/Gravity Inversion Setup Utility";

void add_line(const DebugLog & log, const std::string & text)
{
    std::ofstream(host_path(log.file), std::ios::binary | std::ios::app) << text << "\r\n";
}

std::string now()
{
    const std::time_t time = std::time(nullptr);
    char text[32];
    return std::string(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::localtime(&time)));
}

}

void debug_write(DebugLog & log, Dialogs & dialogs, bool reset, const std::string & text)
{
    if (log.level <= 0) return;
    if (reset || !log.started) {
        delete_file(log.file);
        log.line_count = 0;
        log.started = true;
        add_line(log, std::string("Debug for ") + program_title + " started at : " + now());
    }
    ++log.line_count;
    const std::string line = format_number(log.line_count, "0") + " : " + text;
    add_line(log, line);
    if (log.level > 1) static_cast<void>(std::fputs((line + "\n").c_str(), stderr));
    if (log.line_count == 1) dialogs.message("Debug started: " + log.file);
}
