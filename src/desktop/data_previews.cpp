#include "desktop/data_previews.h"

#include "support/numbers.h"

#include <QHeaderView>
#include <QLayout>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <algorithm>

namespace {

QString shown(const std::string & text) { return QString::fromStdString(text); }

/// The name of a column over what the definition takes from it.
QString heading(const DataPreview & preview, std::size_t column)
{
    const std::string name = column < preview.names.size() ? preview.names[column] : general_text(static_cast<int>(column) + 1);
    const std::string use = column < preview.uses.size() ? preview.uses[column] : "";
    return shown(use.empty() ? name : name + "\n" + use);
}

void fill(QTableWidget & table, const DataPreview & preview)
{
    std::size_t columns = preview.names.size();
    for (const auto & row : preview.rows) columns = std::max(columns, row.size());
    table.clear();
    table.setRowCount(static_cast<int>(preview.rows.size()));
    table.setColumnCount(static_cast<int>(columns));
    for (std::size_t i = 0; i < columns; ++i) {
        auto * const head = new QTableWidgetItem(heading(preview, i));
        const bool used = i < preview.uses.size() && !preview.uses[i].empty();
        QFont font = table.font();
        font.setBold(used);
        head->setFont(font);
        table.setHorizontalHeaderItem(static_cast<int>(i), head);
    }
    for (std::size_t r = 0; r < preview.rows.size(); ++r)
        for (std::size_t c = 0; c < preview.rows[r].size(); ++c) {
            auto * const item = new QTableWidgetItem(shown(preview.rows[r][c]));
            if (is_numeric(preview.rows[r][c])) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table.setItem(static_cast<int>(r), static_cast<int>(c), item);
        }
    table.resizeColumnsToContents();
}

/// All that a preview depends on.
std::string state_of(const Setup & setup, int slot)
{
    const auto at = static_cast<std::size_t>(slot);
    const InversionDefinition & d = setup.definition;
    std::string state = d.data_file[at];
    for (const std::int32_t number : { d.data_kind[at], d.data_first_line[at], d.data_name_line[at], d.data_x_column[at],
                                       d.data_y_column[at], d.data_z_column[at], d.data_value_column[0], d.data_value_column[1],
                                       d.data_value_column[2], d.data_line_column, d.data_extra_value_column })
        state += "|" + general_text(number);
    return state;
}

}

DataPreviews::DataPreviews(QWidget & root)
{
    for (std::size_t slot = 0; slot < panes_.size(); ++slot) {
        auto * const text = root.findChild<QPlainTextEdit *>(QStringLiteral("Text_data_file_%1").arg(slot));
        if (text == nullptr) continue;
        Pane & pane = panes_[slot];
        pane.table = new QTableWidget;
        pane.table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        pane.table->setAlternatingRowColors(true);
        pane.table->verticalHeader()->setVisible(false);
        pane.summary = new QLabel;
        pane.summary->setWordWrap(true);
        auto * const place = new QWidget;
        auto * const pages = new QTabWidget;
        pages->setDocumentMode(true);
        delete text->parentWidget()->layout()->replaceWidget(text, place);
        auto * const layout = new QVBoxLayout(place);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(pane.summary);
        layout->addWidget(pages);
        pages->addTab(pane.table, QObject::tr("Columns"));
        pages->addTab(text, QObject::tr("As it is"));
    }
}

void DataPreviews::show(const Setup & setup)
{
    for (std::size_t slot = 0; slot < panes_.size(); ++slot) {
        Pane & pane = panes_[slot];
        const std::string state = state_of(setup, static_cast<int>(slot));
        if (pane.table == nullptr || pane.shown == state) continue;
        pane.shown = state;
        const DataPreview preview = preview_data_file(setup, static_cast<int>(slot));
        fill(*pane.table, preview);
        pane.summary->setText(shown(preview.summary));
        pane.summary->setVisible(!preview.summary.empty());
    }
}
