#include "form/form.h"

#include "support/fault.h"

void Form::add(std::string_view name, int count)
{
    controls_.emplace(std::string(name), std::vector<Control>(static_cast<std::size_t>(count)));
}

const Control & Form::find(std::string_view name, int index) const
{
    const auto found = controls_.find(name);
    if (found == controls_.end() || index < 0 || index >= static_cast<int>(found->second.size()))
        throw SubscriptFault("the form has no control " + std::string(name) + "(" + std::to_string(index) + ")");
    return found->second[static_cast<std::size_t>(index)];
}

std::vector<std::pair<std::string, int>> Form::names() const
{
    std::vector<std::pair<std::string, int>> all;
    for (const auto & [name, controls] : controls_) all.emplace_back(name, static_cast<int>(controls.size()));
    return all;
}

std::string chosen_text(const Control & list)
{
    return list.position < 0 ? std::string() : list.items.at(static_cast<std::size_t>(list.position)).text;
}

std::int32_t chosen_code(const Control & list, std::int32_t otherwise)
{
    return list.position < 0 ? otherwise : list.items.at(static_cast<std::size_t>(list.position)).code;
}

void choose_code(Control & list, std::int32_t code)
{
    list.position = -1;
    for (std::size_t i = 0; i < list.items.size(); ++i) {
        if (list.items[i].code != code) continue;
        list.position = static_cast<int>(i);
        return;
    }
}

void choose_position(Control & list, std::int32_t position)
{
    list.position = position >= 0 && position < static_cast<std::int32_t>(list.items.size()) ? position : -1;
}
