#pragma once

#include "rules/data_preview.h"

#include <QLabel>
#include <QTableWidget>
#include <array>

/// The first lines of the data and the topography file as tables, beside the plain text of the form.
class DataPreviews {
public:
    /// root: holds the boxes Text_data_file_0 and _1, whose places the tables take, with the text on a second page.
    explicit DataPreviews(QWidget & root);

    /// Looks at the files again where what the definition says of them has changed.
    void show(const Setup & setup);

private:
    struct Pane {
        QTableWidget * table = nullptr;
        QLabel * summary = nullptr;
        std::string shown; ///< what the pane was filled for
    };

    std::array<Pane, 2> panes_;
};
