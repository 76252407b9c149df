#include "app/form_progress.h"

void FormProgress::show_run(bool visible)
{
    form_["Frame_progress"].visible = visible;
    form_["Label_progress"].visible = visible;
}

void FormProgress::begin()
{
    show_run(true);
    display_.begin();
}

void FormProgress::end()
{
    show_run(false);
    display_.end();
}

void FormProgress::line(const std::string & text)
{
    form_["Text_progress"].text += text + "\r\n";
    debug_write(host_.debug, host_.dialogs, false, "progress: " + text);
    display_.line(text);
}

void FormProgress::step(const std::string & text)
{
    form_["Label_progress"].caption = text;
    display_.step(text);
}

void FormProgress::percent(int percent)
{
    form_["ProgressBar_load_ubc_model"].position = percent;
    display_.percent(percent);
}
