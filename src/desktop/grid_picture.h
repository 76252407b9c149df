#pragma once

#include "desktop/backdrop_loader.h"
#include "desktop/layout_drawing.h"

#include <QWidget>

/// A grid as a map in colours with its bar. It is read beside the window's own work.
class GridPicture : public QWidget {
    Q_OBJECT

public:
    explicit GridPicture(QWidget * parent = nullptr);

    /// Shows the grid of this path; an empty one shows nothing. bar_title: what its values are.
    void show_grid(const std::string & path, const QString & bar_title);
    /// Shows the ground of these sources.
    void show_ground(const BackdropSources & sources, const QString & bar_title);
    bool is_loading() const { return loader_.is_loading(); }

private:
    void paintEvent(QPaintEvent * event) override;
    void take(std::shared_ptr<const LayoutBackdrop> backdrop, const QString & messages);

    BackdropLoader loader_;
    LayoutScene scene_;
    PaintedBackdrop painted_;
    QString words_; ///< shown while there is no grid
};
