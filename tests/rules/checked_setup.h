#pragma once

#include "rules/started_setup.h"
#include "rules/validation.h"

/// A form that passes the check with any method: points and topography from files in `folder`, all optional boxes in use.
struct Checked : StartedSetup {
    explicit Checked(const TemporaryFolder & folder, const std::string & method = "4")
    {
        load_lines("Inversion method: " + method + "; X Range: 0 100 10 10; Y Range: 0 100 10 10; Z Range: 0 100 10 10 1 0;" +
                   "X/Y padding: 1,2; Z padding: 1,2,4; Depth weighting: 1 0 3 0; Mag field: 0 0 1;" +
                   "Obs data file: " + folder.write("points.dat", "X Y Z\n1 2 3\n") + ";" +
                   "Topo data file: " + folder.write("topo.dat", "X Y Z\n1 2 3\n"));
        act("Text_line_azimuth :=; Text_inversion_background_value :="); // unread
    }
    InversionDefinition & record() { return setup.definition; }
    void make(const std::string & fault)
    {
        for (const std::string & part : parts_of(fault, ';'))
            if (part.find(':') < part.find_first_of("=_"))
                take_lines(part, record());
            else
                act(part);
    }
    /// The messages of the check; a validated record goes with none and only with none.
    std::vector<std::string> check()
    {
        dialogs.messages.clear();
        std::optional<ValidatedDefinition> validated;
        const Status status = check_inversion_definitions(setup, validated, host);
        EXPECT_EQ(status, dialogs.messages.empty() ? Status::good : Status::bad);
        EXPECT_EQ(validated.has_value(), dialogs.messages.empty());
        return dialogs.messages;
    }
};
