#pragma once

#include "desktop/backdrop_loader.h"
#include "mesh/layout_view.h"
#include "rules/setup.h"

#include <QFrame>
#include <memory>

namespace Ui {
class layout_panel;
}

/// The layout view: the picture of the mesh with its controls. Its control widgets are joined to the form by name like those of
/// the pages; what else the user does in it is told by signals, for the window to take to the rules. It is shown and hidden as
/// the control Frame_tiling_layout.
class LayoutPanel : public QFrame {
    Q_OBJECT

public:
    explicit LayoutPanel(QWidget * parent = nullptr);
    ~LayoutPanel() override;

    /// Shows the layout as the setup stands: to be called whenever it may have changed; costs little when it has not, and nothing
    /// while the panel is hidden. What lies beneath the mesh is read beside.
    void show_layout(const Setup & setup);

    /// Writes what the picture shows as a PNG file; false when that failed.
    bool write_picture(const QString & path);

    bool is_loading() const { return loader_.is_loading(); }

signals:
    // Positions are those of the mesh.
    void pointer_moved(double x, double y);
    void pointer_released(double x, double y);
    /// One press of UpDown_clip[index].
    void clip_pressed(int index, bool up);
    /// The user wants the picture saved: the window asks where to and calls `write_picture`.
    void save_picture();

private:
    void showEvent(QShowEvent * event) override;
    void show_limits(const Setup & setup);
    void show_choice();
    void show_progress(const QString & words, int percent);
    void show_backdrop(std::shared_ptr<const LayoutBackdrop> backdrop, const QString & messages);

    std::unique_ptr<Ui::layout_panel> ui_;
    BackdropLoader loader_;
    // What is shown now, to see whether something has changed.
    std::vector<LayoutLine> lines_;
    std::optional<Extents> shown_;
    std::optional<ViewLimits> limits_;
};
