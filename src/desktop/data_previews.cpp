#include "desktop/data_previews.h"

#include "desktop/grid_picture.h"
#include "rules/data_columns.h"
#include "support/numbers.h"
#include "support/paths.h"

#include <QHeaderView>
#include <QLineEdit>
#include <algorithm>

namespace {

constexpr int topography_slot = 1, first_grid_slot = 2;
constexpr const char * column_boxes[] = { "Text_UBC_locations_xpos_",   "Text_UBC_locations_ypos_", "Text_UBC_locations_zpos_",
                                          "Text_UBC_locations_magpos_", "Text_UBC_locations_lpos",  "Text_UBC_locations_valpos" };

QString shown(const std::string & text) { return QString::fromStdString(text); }

/// A box that holds the name of a column, or its number: names are read from their beginning, and the whole of a long one is in
/// the tool tip.
void follow_name(QLineEdit & box)
{
    const QString own_tip = box.toolTip();
    const auto follow = [&box, own_tip](const QString & text) {
        const bool number = is_numeric(text.toStdString());
        box.setAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        const QString tip = number || text.isEmpty() ? own_tip : QStringLiteral("<p><b>%1</b></p>").arg(text) + own_tip;
        box.setProperty("own_tip", tip);
        if (box.property("fault").toString().isEmpty()) box.setToolTip(tip);
    };
    QObject::connect(&box, &QLineEdit::textChanged, &box, follow);
    follow(box.text());
}

/// The name of a column over what the definition takes from it.
QTableWidgetItem * heading(const QTableWidget & table, const DataPreview & preview, std::size_t column)
{
    const std::string name = column < preview.names.size() ? preview.names[column] : general_text(static_cast<int>(column) + 1);
    const std::string use = column < preview.uses.size() ? preview.uses[column] : "";
    auto * const item = new QTableWidgetItem(shown(name + "\n" + use));
    QFont font = table.font();
    font.setBold(!use.empty());
    item->setFont(font);
    if (use.empty()) item->setForeground(QColor(0x88, 0x88, 0x88));
    return item;
}

/// The colour behind a column that is used: a breath of that of chosen things, on whatever ground the table has.
QColor tint_of(const QPalette & palette)
{
    QColor tint = palette.color(QPalette::Highlight);
    tint.setAlphaF(0.13F);
    return tint;
}

void fill(QTableWidget & table, const DataPreview & preview)
{
    std::size_t columns = preview.names.size();
    for (const auto & row : preview.rows) columns = std::max(columns, row.size());
    table.clear();
    table.setRowCount(static_cast<int>(preview.rows.size()));
    table.setColumnCount(static_cast<int>(columns));
    for (std::size_t i = 0; i < columns; ++i) table.setHorizontalHeaderItem(static_cast<int>(i), heading(table, preview, i));
    const QColor tint = tint_of(table.palette());
    for (std::size_t r = 0; r < preview.rows.size(); ++r)
        for (std::size_t c = 0; c < preview.rows[r].size(); ++c) {
            const std::string & text = preview.rows[r][c];
            auto * const item = new QTableWidgetItem(shown(text));
            if (is_numeric(text)) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (c < preview.uses.size() && !preview.uses[c].empty()) item->setBackground(tint);
            table.setItem(static_cast<int>(r), static_cast<int>(c), item);
        }
    table.resizeColumnsToContents();
}

void dress(QTableWidget & table)
{
    table.verticalHeader()->setVisible(false);
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
    table.horizontalHeader()->setHighlightSections(false);
    table.setSelectionMode(QAbstractItemView::ContiguousSelection);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

/// All that a preview depends on.
std::string state_of(const Setup & setup, int slot)
{
    const auto at = static_cast<std::size_t>(slot);
    const InversionDefinition & d = setup.definition;
    std::string state = d.data_file[at] + "|" + general_text(d.data_kind[at]);
    if (slot >= first_grid_slot) return state;
    for (const std::int32_t number : { d.data_first_line[at], d.data_name_line[at], d.data_x_column[at], d.data_y_column[at],
                                       d.data_z_column[at], d.data_value_column[0], d.data_value_column[1],
                                       d.data_value_column[2], d.data_line_column, d.data_extra_value_column })
        state += "|" + general_text(number);
    return state;
}

/// Nothing, unless the file can be read with the columns as they are now.
BackdropSources points_of_ground(const Setup & setup)
{
    BackdropSources ground;
    const InversionDefinition & d = setup.definition;
    const bool complete = d.data_x_column[1] > 0 && d.data_y_column[1] > 0 && d.data_z_column[1] > 0;
    if (complete && !find_file(d.data_file[1]).empty()) ground.ground_points = backdrop_sources(d, "").ground_points;
    return ground;
}

}

DataPreviews::DataPreviews(QWidget & root)
    : topography_(root.findChild<GridPicture *>(QStringLiteral("Picture_mag"))),
      points_(root.findChild<GridPicture *>(QStringLiteral("points_picture"))),
      observed_(root.findChild<GridPicture *>(QStringLiteral("grid_picture")))
{
    const QString tables[] = { QStringLiteral("Grid_database"), QStringLiteral("table_1") };
    for (int slot = 0; slot < static_cast<int>(panes_.size()); ++slot) {
        Pane & pane = panes_[static_cast<std::size_t>(slot)];
        pane.summary = root.findChild<QLabel *>(QStringLiteral("summary_%1").arg(slot));
        pane.summary->hide();
        if (slot >= first_grid_slot) continue;
        pane.table = root.findChild<QTableWidget *>(tables[slot]);
        pane.tabs = root.findChild<QWidget *>(QStringLiteral("preview_tabs_%1").arg(slot));
        dress(*pane.table);
    }
    for (auto * const box : root.findChildren<QLineEdit *>())
        if (std::ranges::any_of(column_boxes,
                                [box](const char * name) { return box->objectName().startsWith(QLatin1String(name)); }))
            follow_name(*box);
}

void DataPreviews::show(const Setup & setup)
{
    for (int slot = 0; slot < static_cast<int>(panes_.size()); ++slot)
        show_pane(panes_[static_cast<std::size_t>(slot)], setup, slot);
    const auto & files = setup.definition.data_file;
    const bool is_ground = setup.form["Frame_data_file_image"].visible;
    topography_->show_grid(is_ground ? files[topography_slot] : "", QObject::tr("Ground, m"));
    if (points_->isVisible()) points_->show_ground(points_of_ground(setup), QObject::tr("Ground, m"));
    observed_->show_grid(setup.definition.data_file_type == 1 ? files[first_grid_slot] : "", QObject::tr("Data"));
}

void DataPreviews::show_pane(Pane & pane, const Setup & setup, int slot)
{
    const std::string state = state_of(setup, slot);
    if (pane.shown == state) return;
    pane.shown = state;
    const DataPreview preview = preview_data_file(setup, slot);
    pane.summary->setText(shown(preview.summary));
    pane.summary->setVisible(!preview.summary.empty());
    if (pane.table == nullptr) return;
    fill(*pane.table, preview);
    // A file without columns has its map, or its words alone.
    const bool has_columns = !preview.names.empty() || preview.summary.empty();
    pane.tabs->setVisible(has_columns);
    QWidget & group = *pane.tabs->parentWidget();
    group.setSizePolicy(QSizePolicy::Preferred, has_columns ? QSizePolicy::Expanding : QSizePolicy::Maximum);
}
