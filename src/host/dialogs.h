#pragma once

#include <optional>
#include <string>
#include <vector>

struct IgrfRecord;
struct PointTransform;
struct SurveyPlace;

/// What a file dialog shows: its title, its filter ("words|*.a;*.b|more words|*.*") and where it starts.
struct FileDialog {
    std::string title;
    std::string filter;
    std::string start;             // a definition path, or empty
    std::string default_extension; // for saving
};

/// One line of a form of check options.
struct CheckOption {
    std::string label, tool_tip;
    bool on = false;
};

/// The boxes that stop the user. All texts are UTF-8, all paths definition paths.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// A message box with one button.
    virtual void message(const std::string & text) = 0;
    /// A Yes/No question; true for Yes.
    virtual bool question(const std::string & text) = 0;
    /// A file to open, to save or a folder; nothing when cancelled.
    virtual std::optional<std::string> open_file(const FileDialog & dialog) = 0;
    virtual std::optional<std::string> save_file(const FileDialog & dialog) = 0;
    virtual std::optional<std::string> choose_folder(const std::string & title, const std::string & start) = 0;
    /// One line of text; nothing when cancelled.
    virtual std::optional<std::string> input(const std::string & title, const std::string & prompt,
                                             const std::string & start) = 0;
    /// A form of check options; false, with the options as they were, when cancelled.
    virtual bool check_options(const std::string & title, std::vector<CheckOption> & options) = 0;
    /// The window that defines a coordinate transform, showing `transform` at first; nothing when cancelled.
    virtual std::optional<PointTransform> define_transform(const PointTransform & transform) = 0;
    /// The window that computes the earth's field, showing `record` at first. survey: where the survey is, null when that is not
    /// known. False, with the record as it was, when cancelled.
    virtual bool define_igrf(IgrfRecord & record, const SurveyPlace * survey) = 0;
};
