#pragma once

#include "form/form.h"
#include "host/host.h"

/// Keeps the progress controls of the form current, notes finished lines in the debug log and passes every report on to the
/// program's own display.
class FormProgress : public Progress {
public:
    FormProgress(Form & form, Host & display) : form_(form), host_(display), display_(display.progress) {}

    void begin() override;
    void end() override;
    void line(const std::string & text) override;
    void step(const std::string & text) override;
    void percent(int percent) override;

private:
    void show_run(bool visible);

    Form & form_;
    Host & host_;
    Progress & display_;
};
