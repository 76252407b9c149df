#pragma once

#include "host/host.h"
#include "support/fault.h"
#include "utilities/igrf_record.h"
#include "utilities/point_transform.h"

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// Records every message and picks from a script; what the script does not hold is cancelled, and every question answered No
/// unless told otherwise.
struct RecordedDialogs : Dialogs {
    std::vector<std::string> messages;
    std::vector<std::string> questions; ///< questions, file dialogs and input boxes by their text or title
    std::deque<std::string> picks;      ///< for file, folder and input dialogs, in order
    std::optional<PointTransform> defined_transform;
    std::optional<IgrfRecord> defined_field;
    bool yes = false;     ///< the answer to every question
    FileDialog last_file; ///< the last dialog for a file to open

    void message(const std::string & text) override { messages.push_back(text); }
    bool question(const std::string & text) override
    {
        questions.push_back(text);
        return yes;
    }
    std::optional<std::string> open_file(const FileDialog & dialog) override
    {
        last_file = dialog;
        return pick(dialog.title);
    }
    std::optional<std::string> save_file(const FileDialog & dialog) override { return pick(dialog.title); }
    std::optional<std::string> choose_folder(const std::string & title, const std::string &) override { return pick(title); }
    std::optional<std::string> input(const std::string & title, const std::string &, const std::string &) override
    {
        return pick(title);
    }
    /// A pick holds a "1" or "0" per option.
    bool check_options(const std::string & title, std::vector<CheckOption> & options) override
    {
        const auto picked = pick(title);
        for (std::size_t i = 0; picked && i < options.size(); ++i) options[i].on = picked->at(i) == '1';
        return picked.has_value();
    }
    std::optional<PointTransform> define_transform(const PointTransform &) override { return defined_transform; }
    bool define_igrf(IgrfRecord & record, const SurveyPlace *) override
    {
        if (defined_field) record = *defined_field;
        return defined_field.has_value();
    }

private:
    std::optional<std::string> pick(const std::string & title)
    {
        questions.push_back(title);
        if (picks.empty()) return std::nullopt;
        std::string picked = picks.front();
        picks.pop_front();
        return picked;
    }
};

struct RecordedProgress : Progress {
    std::vector<std::string> lines;
    std::vector<std::string> steps;
    std::vector<int> percents;
    int stop_at_percent = -1; ///< the user's Stop: the report of this percentage fails with `Stopped`

    void begin() override {}
    void end() override {}
    void line(const std::string & text) override { lines.push_back(text); }
    void step(const std::string & text) override { steps.push_back(text); }
    void percent(int percent) override
    {
        percents.push_back(percent);
        if (percent == stop_at_percent) throw Stopped();
    }
};

/// Settings that live as long as the test.
struct KeptSettings : SettingsStore {
    std::map<std::string, std::string> kept; ///< by section and name with a "\" between them

    std::string read(const std::string & section, const std::string & name, const std::string & start) override
    {
        const auto found = kept.find(section + "\\" + name);
        return found == kept.end() ? start : found->second;
    }
    bool write(const std::string & section, const std::string & name, const std::string & text) override
    {
        kept[section + "\\" + name] = text;
        return true;
    }
    std::vector<std::string> names(const std::string & section) override
    {
        std::vector<std::string> all;
        for (const auto & [path, text] : kept)
            if (path.starts_with(section + "\\")) all.push_back(path.substr(section.size() + 1));
        return all;
    }
};

struct RecordedLauncher : ScriptLauncher {
    std::vector<std::string> started;
    void start(const std::string & folder, const std::string & script) override { started.push_back(folder + script); }
};

/// A host of fakes; hand `host` to the code under test and look at the parts afterwards.
struct RecordedHost {
    RecordedDialogs dialogs;
    RecordedProgress progress;
    KeptSettings settings;
    RecordedLauncher launcher;
    DebugLog debug;
    Host host{ dialogs, progress, settings, launcher, debug };
};
