#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// An item of a list control: its text, and the code that choosing it stands for.
struct ListItem {
    std::string text;
    std::int32_t code = 0;
};

/// One control as plain data. A control uses the fields that its kind has; all start empty, shown and enabled.
struct Control {
    std::string text;            ///< of a box
    std::string caption;         ///< of a label, frame, button or check
    std::string tool_tip;        ///< where a rule sets it; the others stand with the widgets
    std::vector<ListItem> items; ///< of a list
    int position = -1;           ///< the chosen item, from 0; -1 none
    bool on = false;             ///< of a check, option or toggle
    bool visible = true;
    bool enabled = true;
    std::int32_t back_colour = window_colour;

    static constexpr std::int32_t window_colour = -1; ///< the system's own colour
};

/// The controls of a form by name and index: `form["Text_min_val"]`, `form("Text_min_val", 2)`.
/// A name or index that the form does not have is a `SubscriptFault`: a slip of the program, never of the user.
class Form {
public:
    /// Adds `count` controls, with indices from 0.
    void add(std::string_view name, int count = 1);

    Control & operator()(std::string_view name, int index = 0) { return const_cast<Control &>(find(name, index)); }
    const Control & operator()(std::string_view name, int index = 0) const { return find(name, index); }
    Control & operator[](std::string_view name) { return (*this)(name); }
    const Control & operator[](std::string_view name) const { return (*this)(name); }

    /// All names with their counts, in order of name.
    std::vector<std::pair<std::string, int>> names() const;

private:
    const Control & find(std::string_view name, int index) const;

    std::map<std::string, std::vector<Control>, std::less<>> controls_;
};

/// The text of the chosen item; empty when none is chosen.
std::string chosen_text(const Control & list);
/// The code of the chosen item, or `otherwise` when none is chosen.
std::int32_t chosen_code(const Control & list, std::int32_t otherwise);
/// Chooses the first item that stands for `code`, none when there is no such item.
void choose_code(Control & list, std::int32_t code);
/// Chooses the item at `position`, none when the list does not reach so far.
void choose_position(Control & list, std::int32_t position);
