#pragma once

#include "fakes/case_table.h"
#include "fakes/temporary_folder.h"

/// The survey of the folder tiny in a folder of its own: 16 readings over a core of 4 by 4 cells, with its ground, enough for
/// every file to be written. `changes` are lines of its definition, ";" between them, in place of those with the same labels.
class TinySurvey {
public:
    explicit TinySurvey(const std::string & changes = "")
    {
        for (const char * name : { "data.csv", "ground.xyz" })
            folder.write(name, bytes_of(std::string(TINY_SURVEY_FOLDER "/") + name));
        folder.write("tiny.inp", definition(changes));
    }

    static std::string definition(const std::string & changes)
    {
        std::string text = bytes_of(TINY_SURVEY_FOLDER "/tiny.inp");
        for (const std::string & line : parts_of(changes, ';')) {
            if (line.empty()) continue;
            const std::size_t place = text.find("\n" + line.substr(0, line.find(':') + 1));
            if (place == text.npos)
                text.insert(text.find("[Comments]"), line + "\r\n");
            else
                text.replace(place + 1, text.find('\r', place) - place - 1, line);
        }
        return text;
    }

    TemporaryFolder folder;
};
