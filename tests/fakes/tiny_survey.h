#pragma once

#include "fakes/temporary_folder.h"

#include <map>
#include <string>
#include <vector>

/// A survey of 16 readings over a core of 4 by 4 cells, with its ground, in a folder of its own: enough for every file to be
/// written. Labels given in `changes` get another value in the definition.
class TinySurvey {
public:
    explicit TinySurvey(const std::map<std::string, std::string> & changes = {})
    {
        std::string data = "x,y,height,nt,line\r\n";
        std::string ground;
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column) {
                const std::string place = std::to_string(1050 + 100 * column) + "," + std::to_string(2050 + 100 * row);
                data += place + ",330," + std::to_string(10 * row + column) + ",L" + std::to_string(row) + "\r\n";
                ground += std::to_string(1000 + 130 * column) + " " + std::to_string(2000 + 130 * row) + " " +
                          std::to_string(240 + 5 * column + row * row) + "\r\n";
            }
        folder.write("data.csv", data);
        folder.write("ground.xyz", ground);
        folder.write("tiny.inp", definition(changes));
    }

    static std::string definition(const std::map<std::string, std::string> & changes)
    {
        std::vector<std::pair<std::string, std::string>> lines = {
            { "Inversion method", "4" },
            { "Inversion mode", "0" },
            { "Refinement Mode", "0 ! 0=simple, 1=refined" },
            { "X Range", "1000 1400 100 4" },
            { "Y Range", "2000 2400 100 4" },
            { "Z Range", "0 300 50 6 1 0" },
            { "Add mesh padding", "1 0" },
            { "X/Y padding", "1,2,4,8" },
            { "Z padding", "1,2" },
            { "Smoothness weighting", "0 16,8,4,2,1" },
            { "Trade-off parameter", " 1" },
            { "Misfit tolerance", " .02" },
            { "Obs data types  ", "1 -1 -1" },
            { "Data file type", "0 ! 0=point, 1=grid" },
            { "Obs data file  ", "data.csv" },
            { "Topo data file ", "ground.xyz" },
            { "Obs data definitions", "2 0 1 0 1 2 3 4 0 0 0" },
            { "Number of Obs data per cell", "1 0" },
            { "Obs data base value", "0" },
            { "Obs data scale value", "1" },
            { "Sensor height definitions", "1 0 0" },
            { "Error percent and floor", "2 1" },
            { "Topo data definitions", "1 0 1 1 2 3" },
            { "Topo type", "0" },
            { "Mag field", "-53.31 6.66 52055" },
        };
        std::string text = "Version 3.0\r\n";
        std::map<std::string, std::string> left = changes;
        for (auto & [label, value] : lines) {
            const std::string bare = label.substr(0, label.find_last_not_of(' ') + 1);
            if (const auto change = left.find(bare); change != left.end()) {
                value = change->second;
                left.erase(change);
            }
            text += label + ": " + value + "\r\n";
        }
        for (const auto & [label, value] : left) text += label + ": " + value + "\r\n";
        return text + "[Comments]\r\n";
    }

    TemporaryFolder folder;
};
