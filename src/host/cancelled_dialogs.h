#pragma once

#include "host/dialogs.h"

/// Dialogs without a user: every question is answered No and every prompt cancelled. What becomes of messages is left
/// open, and so is the transform, which is not known here.
class CancelledDialogs : public Dialogs {
public:
    bool question(const std::string &) override { return false; }
    std::optional<std::string> open_file(const FileDialog &) override { return std::nullopt; }
    std::optional<std::string> save_file(const FileDialog &) override { return std::nullopt; }
    std::optional<std::string> choose_folder(const std::string &, const std::string &) override { return std::nullopt; }
    std::optional<std::string> input(const std::string &, const std::string &, const std::string &) override
    {
        return std::nullopt;
    }
    bool check_options(const std::string &, std::vector<CheckOption> &) override { return false; }
    bool define_igrf(IgrfRecord &, const SurveyPlace *) override { return false; }
};
