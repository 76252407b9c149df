#pragma once

#include "data/line_scanner.h"
#include "data/location_reader.h"
#include "data/record_parser.h"

#include <functional>
#include <string>
#include <vector>

/// The running statistics of one quantity.
struct Tally {
    double minimum = 1e32, maximum = -1e32;
    double sum = 0;
    std::int64_t count = 0;

    void add(double value);
    /// Adds those of a later stretch.
    void add(const Tally & later);
    Range range() const;
};

/// The texts that a record keeps from the one before where it does not reach their columns.
struct RecordTexts {
    /// Not known while it stands in an earlier stretch that has not been looked at.
    struct Text {
        std::string text;
        bool known = true;
    };
    Text line, category, text; ///< the line name is the last one seen, be it on a record that was dropped
};

/// How records become points.
struct PointRules {
    /// limits: those of the windows. Fails with a `SubscriptFault` for a column above 512.
    PointRules(const LocationSource & source, ReadMode mode, const LocationStatistics & limits);

    const LocationSource & source;
    RecordParser parser;
    bool stores;
    std::array<bool, 2> window = {};
    std::array<Range, 2> limits;
};

/// The points of a stretch of a file. Lines and categories have numbers of their own here, by their appearance; 0 is the line
/// that runs on from before.
struct PointBlock {
    ObservedData points; ///< up to the first points of lines; empty lists where nothing is stored
    double minimum_x = 1e32, maximum_x = -1e32, minimum_y = 1e32, maximum_y = -1e32;
    Tally z;
    std::array<Tally, 3> value;
    bool has_categories = false;
    RecordTexts texts;           ///< behind the last record
    bool asks_for_texts = false; ///< a point needs texts that are not known, so all of this is void
};

/// Reads up to `most` records into `block`, which comes behind one that ended with the texts `before`; false at the end of the
/// text. There is no other way from a record to a point: it drops what is no point and brings coordinates into the mesh's frame.
bool read_block(const PointRules & rules, LineScanner & lines, std::int64_t most, const RecordTexts & before, PointBlock & block);

/// Gives the fields of the next record; false when there is none.
using NextFields = std::function<bool(std::vector<std::string> & fields)>;

/// The same for records whose fields stand apart already, up to the last.
void read_block(const PointRules & rules, const NextFields & next, const RecordTexts & before, PointBlock & block);
