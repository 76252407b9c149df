#pragma once

#include "fakes/definition_values.h"
#include "form/main_form.h"
#include "rules/apply_definition.h"
#include "rules/change_rules.h"

#include <gtest/gtest.h>
#include <regex>

/// A setup as it stands when the program has started, with what a user does to it and sees of it, in words with ";" between
/// them. A control goes by its name and, unless that is 0, its index:
///
///     Text_max_val 2 = 100        the user types, or the box shows, 100; ":=" puts it there without the change rules
///     Combo_positivity = 3        the user picks the position, from 0 and -1 for none; seen is the text of the chosen item
///     Check_sLog = on             also off
///     Label_sensor = Height       seen is the caption
///     Frame_field shown           also hidden, enabled, disabled, green, red, plain
///     Tile overlap: 20            a line of the definition: what the record holds
struct StartedSetup : RecordedHost {
    Setup setup;

    StartedSetup()
    {
        setup.form = make_main_form();
        initialise_inversion_form(setup, host);
    }
    void load(const InversionDefinition & record, Selection selection = Selection::all)
    {
        load_mag3d_form(setup, record, selection, host);
    }
    /// Loads a fresh definition with some of its lines changed.
    void load_lines(const std::string & lines, Selection selection = Selection::all)
    {
        InversionDefinition record;
        take_lines(lines, record);
        load(record, selection);
    }
    void act(const std::string & steps)
    {
        for (const std::string & step : parts_of(steps, ';')) {
            if (step.empty()) continue;
            const auto [name, index, verb, value] = words_of(step);
            Control & control = setup.form(name, index);
            if (name.starts_with("Combo_"))
                control.position = number_in(value);
            else if (value == "on" || value == "off")
                control.on = value == "on";
            else
                control.text = value;
            if (verb == "=") form_changed(setup, name, index, host);
        }
    }
    void expect(const std::string & wanted)
    {
        for (const std::string & part : parts_of(wanted, ';')) {
            if (const std::size_t colon = part.find(':'); colon < part.find_first_of("=_")) {
                EXPECT_EQ(value_written(setup.definition, part.substr(0, colon)), trim(part.substr(colon + 1))) << part;
                continue;
            }
            const auto [name, index, verb, value] = words_of(part);
            EXPECT_EQ(seen(setup.form(name, index), name, verb), verb == "=" ? value : verb) << part;
        }
    }
    const std::string & text(const char * control, int index = 0) { return setup.form(control, index).text; }

private:
    struct Words {
        std::string name;
        int index;
        std::string verb, value;
    };
    static Words words_of(const std::string & text)
    {
        static const std::regex form(R"((\w+)( \d)? (:?=|[a-z]+) ?(.*))");
        std::smatch word;
        if (!std::regex_match(text, word, form)) throw std::runtime_error("not understood: " + text);
        return { word[1], word[2].matched ? word.str(2)[1] - '0' : 0, word[3], unquoted(word[4]) };
    }
    static std::string seen(const Control & control, const std::string & name, const std::string & verb)
    {
        if (verb == "shown" || verb == "hidden") return control.visible ? "shown" : "hidden";
        if (verb == "enabled" || verb == "disabled") return control.enabled ? "enabled" : "disabled";
        if (verb != "=") return control.back_colour == 65280 ? "green" : control.back_colour == 255 ? "red" : "plain";
        if (name.starts_with("Combo_")) return chosen_text(control);
        if (name.starts_with("Check_") || name.starts_with("Option_")) return control.on ? "on" : "off";
        return name.starts_with("Text_") ? control.text : control.caption;
    }
};
