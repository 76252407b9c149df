#pragma once

#include "definition/definition_file.h"
#include "definition/definition_lines.h"
#include "definition/definition_text.h"
#include "fakes/case_table.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "support/text.h"

/// Lets lines of a definition file, ";" between them, change a record. A label that no definition has ends the test.
inline void take_lines(const std::string & lines, InversionDefinition & record)
{
    if (lines.empty()) return;
    std::string text = "Version 3.0\n";
    for (const std::string & line : parts_of(lines, ';')) {
        const auto bare = [](std::string_view label) { return trim(label.substr(0, label.find(':'))); };
        bool known = line.find_first_of("[-0123456789") == 0; // of a section
        for (const Line & row : lines_of(record)) known = known || bare(row.label) == bare(line);
        if (!known) throw std::runtime_error("not a line of a definition: " + line);
        text += line + "\n";
    }
    const TemporaryFolder folder;
    RecordedDialogs dialogs;
    const Status status = read_inversion_parameter_file(folder.write("lines.inp", text), Selection::all, record, dialogs);
    if (status != Status::good || !dialogs.messages.empty()) throw std::runtime_error("cannot be read: " + lines);
}

/// What a definition file of the record has behind a label.
inline std::string value_written(const InversionDefinition & record, const std::string & label)
{
    for (const std::string & line : parts_of(definition_text(record), '\n'))
        if (const std::size_t colon = line.find(':'); trim(line.substr(0, colon)) == label && colon != line.npos)
            return std::string(trim(line.substr(colon + 1)));
    throw std::runtime_error("not a line of a definition: " + label);
}
