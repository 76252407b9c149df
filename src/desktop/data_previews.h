#pragma once

#include "rules/data_preview.h"

#include <QLabel>
#include <QTableWidget>
#include <array>

class GridPicture;

/// What the files of the form hold, beside the boxes that name them: the first lines of the data and of the topography file as
/// tables, grids as maps, and a line of words on each.
class DataPreviews {
public:
    /// root: holds the tables Grid_database and table_1 and the labels summary_0 to summary_5.
    explicit DataPreviews(QWidget & root);

    /// Looks at the files again where what the definition says of them has changed.
    void show(const Setup & setup);

private:
    struct Pane {
        QTableWidget * table = nullptr; ///< null for the slots of grids
        QWidget * tabs = nullptr;       ///< that the table is on
        QLabel * summary = nullptr;
        std::string shown; ///< what the pane was filled for
    };

    void show_pane(Pane & pane, const Setup & setup, int slot);

    std::array<Pane, 6> panes_;
    GridPicture * topography_ = nullptr;
    GridPicture * points_ = nullptr; ///< the points of the ground; they are read only while they are to be seen
    GridPicture * observed_ = nullptr;
};
