#pragma once

#include "data/database/survey_database.h"
#include "support/fault.h"

#include <array>
#include <map>

/// A channel of a survey in memory.
struct GivenChannel {
    std::string name;
    std::int32_t type = 5;
    std::vector<std::vector<ChannelValues>> values = {}; ///< by line and element
};

struct GivenSurvey {
    std::vector<std::string> lines;
    std::vector<GivenChannel> channels;

    ChannelValues & values(const std::string & name, std::size_t line, std::size_t element = 0)
    {
        for (GivenChannel & channel : channels)
            if (channel.name == name) return channel.values.at(line).at(element);
        throw Fault("no channel " + name);
    }
};

/// The beginnings of three lines of the Wisconsin airborne magnetic survey of 2021 (US Geological Survey, data release P93SY9LI,
/// public domain), as channels Line (integers), E, N, TMI, Base (reals; Base is null all along), Flight (texts, the line's name
/// behind an "L") and Z (an array of the sensor's height and the ground's).
inline GivenSurvey wisconsin_lines()
{
    using Row = std::array<double, 5>; // E, N, sensor, ground, TMI
    const std::map<std::string, std::vector<Row>> lines = {
        { "100101",
          { { 724307.21, 491569.63, 276.32, 176.82, 54820.919 },
            { 723880.91, 491709.20, 270.08, 217.31, 54821.956 },
            { 723449.81, 491852.57, 274.22, 231.55, 54809.349 } } },
        { "100201",
          { { 721343.57, 491892.90, 232.57, 178.29, 54783.965 }, { 721809.78, 491748.62, 227.54, 182.27, 54779.187 } } },
        { "100602", { { 718075.55, 489746.46, 235.82, 178.65, 55002.255 } } },
    };
    GivenSurvey survey{ {}, { { "Line", 3, {} }, { "E" }, { "N" }, { "TMI" }, { "Base" }, { "Flight", -8, {} }, { "Z" } } };
    for (const auto & [name, rows] : lines) {
        survey.lines.push_back(name);
        for (GivenChannel & channel : survey.channels)
            channel.values.emplace_back(channel.name == "Z" ? 2 : 1, ChannelValues{ channel.type, {}, {}, {} });
        const std::size_t line = survey.lines.size() - 1;
        for (const auto & [east, north, sensor, ground, field] : rows) {
            survey.values("Line", line).integers.push_back(std::stoi(name));
            for (const auto & [channel, value] : { std::pair("E", east), { "N", north }, { "TMI", field }, { "Base", -1e30 } })
                survey.values(channel, line).reals.push_back(value);
            survey.values("Flight", line).texts.push_back(" L" + name);
            survey.values("Z", line, 0).reals.push_back(sensor);
            survey.values("Z", line, 1).reals.push_back(ground);
        }
    }
    return survey;
}

/// A database in memory that counts what is held. Symbols and handles are positions from 1.
class GivenDatabase : public SurveyDatabase {
public:
    GivenSurvey survey = wisconsin_lines();
    std::map<std::int32_t, int> locks;
    int locked = 0;              ///< how often anything was
    std::string failing_channel; ///< cannot be locked
    int reads_left = 1000000;    ///< the read after these fails

    std::vector<DatabaseChannel> channels() override
    {
        if (reads_left == 0) throw Fault("no list");
        std::vector<DatabaseChannel> list = { { "LineNumber", 1 } };
        for (const GivenChannel & channel : survey.channels)
            list.push_back({ channel.name, static_cast<std::int32_t>(channel.values.at(0).size()) });
        return list;
    }
    std::int32_t find_channel(const std::string & name) override
    {
        for (std::size_t i = 0; i < survey.channels.size(); ++i)
            if (survey.channels[i].name == name && name != missing_channel) return static_cast<std::int32_t>(i + 1);
        return 0;
    }
    void lock(std::int32_t symbol) override
    {
        if (channel(symbol).name == failing_channel) throw Fault("held by another");
        ++locks[symbol];
        ++locked;
    }
    void unlock(std::int32_t symbol) override
    {
        if (--locks[symbol] == 0) locks.erase(symbol);
    }
    std::int32_t channel_type(std::int32_t symbol) override { return channel(symbol).type; }
    std::vector<DatabaseLine> lines() override
    {
        std::vector<DatabaseLine> list;
        for (const std::string & name : survey.lines) list.push_back({ name, static_cast<std::int32_t>(list.size() + 1) });
        return list;
    }
    void read_channel(const DatabaseLine & line, std::int32_t symbol, std::int32_t element, ChannelValues & values) override
    {
        if (--reads_left < 0) throw Fault("a bad block");
        if (locks[symbol] != 1) throw Fault("not held");
        values = channel(symbol).values.at(static_cast<std::size_t>(line.handle) - 1).at(static_cast<std::size_t>(element));
    }

    std::string missing_channel; ///< listed, but not to be found

private:
    GivenChannel & channel(std::int32_t symbol) { return survey.channels.at(static_cast<std::size_t>(symbol) - 1); }
};
