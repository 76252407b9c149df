#include "desktop/layout_panel.h"

#include "desktop/clip_buttons.h"
#include "desktop/layout_picture.h"
#include "rules/layout_rules.h"
#include "support/numbers.h"
#include "support/text.h"
#include "ui_layout_panel.h"

#include <QShowEvent>

namespace {

bool same_extents(const std::optional<Extents> & one, const std::optional<Extents> & other)
{
    if (!one || !other) return !one && !other;
    return one->west == other->west && one->east == other->east && one->south == other->south && one->north == other->north;
}

}

LayoutPanel::LayoutPanel(QWidget * parent) : QFrame(parent), ui_(std::make_unique<Ui::layout_panel>())
{
    ui_->setupUi(this);
    for (int index = 0; index < 12; ++index) {
        auto * const buttons = findChild<ClipButtons *>(QStringLiteral("UpDown_clip_%1").arg(index));
        connect(buttons, &ClipButtons::pressed, this, [this, index](bool up) { emit clip_pressed(index, up); });
    }
    LayoutPicture & picture = *ui_->Picture_tiling_layout;
    connect(&picture, &LayoutPicture::pointer_moved, this, &LayoutPanel::pointer_moved);
    connect(&picture, &LayoutPicture::pointer_released, this, &LayoutPanel::pointer_released);
    connect(ui_->fit_picture, &QPushButton::clicked, &picture, &LayoutPicture::fit);
    connect(ui_->save_picture_button, &QPushButton::clicked, this, &LayoutPanel::save_picture);
    for (const QCheckBox * const box : { ui_->show_readings, ui_->show_ground, ui_->show_image })
        connect(box, &QCheckBox::toggled, this, &LayoutPanel::show_choice);
    connect(&loader_, &BackdropLoader::progressed, this, &LayoutPanel::show_progress);
    connect(&loader_, &BackdropLoader::finished, this, &LayoutPanel::show_backdrop);
    connect(ui_->stop_loading, &QPushButton::clicked, &loader_, &BackdropLoader::stop);
    ui_->stop_loading->hide();
}

LayoutPanel::~LayoutPanel() = default;

void LayoutPanel::showEvent(QShowEvent * event)
{
    if (!event->spontaneous()) {
        loader_.forget();
        limits_.reset(); // opened anew, it shows all
    }
    QFrame::showEvent(event);
}

void LayoutPanel::show_layout(const Setup & setup)
{
    if (isHidden()) return;
    const LayoutSource source = layout_source(setup);
    const ViewLimits limits = layout_limits(setup);
    std::optional<Extents> shown = shown_extents(source, limits);
    std::vector<LayoutLine> lines = layout_lines(source, limits);
    if (limits != limits_ || lines != lines_ || !same_extents(shown, shown_)) {
        const bool fit = limits != limits_;
        limits_ = limits;
        lines_ = lines;
        shown_ = shown;
        ui_->Picture_tiling_layout->show_scene(
            { shown, std::move(lines), setup.definition.coordinate_transform, source.tiles != nullptr }, fit);
    }
    show_limits(setup);
    const std::string image(trim(setup.form["Text_image_file"].text));
    if (!loader_.load(backdrop_sources(setup.definition, image))) return;
    show_backdrop(nullptr, {});
    show_progress(tr("Reading"), 0);
}

void LayoutPanel::show_limits(const Setup & setup)
{
    const InversionDefinition & definition = setup.definition;
    const auto text = [](double value) { return QString::fromStdString(general_text(value)); };
    ui_->limit_4->setText(text(definition.mesh_min[0]));
    ui_->limit_5->setText(text(definition.mesh_max[0]));
    ui_->limit_6->setText(text(definition.mesh_min[1]));
    ui_->limit_7->setText(text(definition.mesh_max[1]));
    const bool refined = setup.refinement_mode == 1;
    ui_->word_limit_10->setText(refined ? tr("Tile overlap") : tr("Both x limits"));
    ui_->limit_10->setText(refined ? text(definition.tile_overlap) : QString());
    ui_->word_limit_11->setVisible(!refined);
}

void LayoutPanel::show_choice()
{
    ui_->Picture_tiling_layout->show_choice(
        { ui_->show_ground->isChecked(), ui_->show_image->isChecked(), ui_->show_readings->isChecked() });
}

void LayoutPanel::show_progress(const QString & words, int percent)
{
    ui_->loading_words->setText(QStringLiteral("%1  %2 %").arg(words).arg(percent));
    ui_->loading_words->setToolTip({});
    ui_->stop_loading->show();
}

void LayoutPanel::show_backdrop(std::shared_ptr<const LayoutBackdrop> backdrop, const QString & messages)
{
    ui_->stop_loading->hide();
    // One line of it; the whole is in the tool tip.
    ui_->loading_words->setText(messages.isEmpty() ? QString() : tr("Not all could be read"));
    ui_->loading_words->setToolTip(messages);
    if (backdrop) {
        ui_->show_readings->setEnabled(!backdrop->reading_x.empty());
        ui_->show_ground->setEnabled(backdrop->ground.columns > 0);
        ui_->show_image->setEnabled(backdrop->picture || backdrop->grid.columns > 0);
    }
    ui_->Picture_tiling_layout->show_backdrop(std::move(backdrop));
}

bool LayoutPanel::write_picture(const QString & path) { return ui_->Picture_tiling_layout->image().save(path, "PNG"); }
