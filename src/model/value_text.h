#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// The values of a part of a model's text, up to the first that is none.
struct TextValues {
    std::vector<float> room;
    std::size_t count = 0;
    std::string_view
        fault; ///< what stands where a value should; empty, but with a place in the text, for nothing between two commas

    std::span<const float> values() const { return { room.data(), count }; }
    bool faulty() const { return fault.data() != nullptr; }
};

/// Reads numbers with blanks, tabs, line ends, or one comma, semicolon or apostrophe between them. Bytes that are no printable
/// text are passed over. A number is the nearest double to its text, as a float; one beyond a float is a fault.
void read_plain_values(std::string_view text, TextValues & found);

/// Reads one component of lines "(a,b,c)". component: from 1. Blank lines are passed over; an item that is missing or no number
/// is `model_null`.
void read_component(std::string_view text, std::int32_t component, float model_null, TextValues & found);

/// Cuts a text into parts of about `size` bytes that can be read apart: in front of a value, or of a line.
std::vector<std::string_view> parts_of_values(std::string_view text, std::size_t size);
std::vector<std::string_view> parts_of_lines(std::string_view text, std::size_t size);
