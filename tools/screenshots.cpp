// Writes a picture of every page and dialog of the form into a folder, as the bundled survey fills them.

#include "app/file_commands.h"
#include "desktop/appearance.h"
#include "desktop/grid_picture.h"
#include "desktop/igrf_dialog.h"
#include "desktop/layout_panel.h"
#include "desktop/main_window.h"
#include "desktop/transform_dialog.h"
#include "fakes/recorded_host.h"
#include "fakes/temporary_folder.h"
#include "support/paths.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QHash>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <filesystem>

namespace {

struct PagePicture {
    const char * name;
    int page;
};

constexpr PagePicture pages[] = {
    { "1_solver", 0 }, { "2_data", 1 }, { "3_topography", 2 }, { "4_mesh", 3 }, { "5_parameters", 4 }
};

/// Cells of 500 m over the survey, and padding: a mesh that a first, coarse inversion would have had.
constexpr const char * base_mesh = "24 24 12\r\n449250 7550250 350\r\n1000 750 20*500 750 1000\r\n1000 750 20*500 750 1000\r\n"
                                   "8*250 400 600 900 1400\r\n";

/// Answers from a script, but for the dialog of options, which is really shown.
struct PictureDialogs : RecordedDialogs {
    QWidget * parent = nullptr;

    bool check_options(const std::string & title, std::vector<CheckOption> & options) override
    {
        return DesktopDialogs(*parent).check_options(title, options);
    }
};

/// The same picture with a table of its colours where they are few, which makes a file much smaller.
QImage with_few_colours(const QImage & image)
{
    constexpr int most_colours = 256;
    QHash<QRgb, int> places;
    QImage indexed(image.size(), QImage::Format_Indexed8);
    for (int y = 0; y < image.height(); ++y) {
        const auto * const pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const auto place = places.constFind(pixels[x]);
            const int index = place == places.constEnd() ? static_cast<int>(places.size()) : *place;
            if (index == most_colours) return image;
            if (place == places.constEnd()) places.insert(pixels[x], index);
            indexed.scanLine(y)[x] = static_cast<uchar>(index);
        }
    }
    QList<QRgb> table(places.size());
    for (auto place = places.constBegin(); place != places.constEnd(); ++place) table[*place] = place.key();
    indexed.setColorTable(table);
    return indexed;
}

class Camera {
public:
    Camera(MainWindow & window, RecordedDialogs & dialogs, QString folder)
        : window_(window), dialogs_(dialogs), folder_(std::move(folder))
    {
    }

    void save(QWidget & shown, const QString & name)
    {
        QTest::qWait(150);
        write(shown, name);
    }

    void page(const char * name, int page)
    {
        tabs().setCurrentIndex(page);
        const QList<GridPicture *> maps = window_.findChildren<GridPicture *>();
        const auto read = [&maps] { return std::ranges::none_of(maps, &GridPicture::is_loading); };
        if (!QTest::qWaitFor(read, 20000)) std::puts("a map was not read in time");
        save(window_, QLatin1String(name));
    }

    /// A picture of the dialog that `open` shows, which is then left.
    void dialog(const QString & name, const std::function<void()> & open)
    {
        QTimer::singleShot(400, &window_, [this, name] {
            auto * const shown = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (shown == nullptr) return;
            write(*shown, name);
            shown->reject();
        });
        open();
    }

    void layout(const QString & name)
    {
        window_.press("Command_view_tiling");
        auto & panel = *window_.findChild<LayoutPanel *>();
        if (!QTest::qWaitFor([&panel] { return !panel.is_loading(); }, 20000))
            std::puts("what lies beneath was not read in time");
        save(window_, name);
        window_.press("Command_done_tiling_layout");
    }

    /// A tiled creation stops to show its tiles; one of them is chosen.
    void paused(const QString & name)
    {
        window_.press("Command_create_inversion");
        auto & panel = *window_.findChild<LayoutPanel *>();
        if (!QTest::qWaitFor([&panel] { return !panel.is_loading(); }, 20000))
            std::puts("what lies beneath was not read in time");
        auto & picture = *window_.findChild<QWidget *>(QStringLiteral("Picture_tiling_layout"));
        QTest::mouseClick(&picture, Qt::LeftButton, {}, { picture.width() / 3, picture.height() * 2 / 3 });
        save(window_, name);
        window_.press("Command_cancel_tile");
    }

    /// Creates the inversion, with a picture while it is under way.
    void run(const QString & name)
    {
        tabs().setCurrentIndex(6);
        bool taken = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &window_, [&] {
            const auto & bar = *window_.findChild<QProgressBar *>(QStringLiteral("ProgressBar_load_ubc_model"));
            if (taken || bar.value() < 40 || bar.value() > 90) return;
            taken = true;
            write(window_, name);
        });
        timer.start(1);
        window_.press("Command_create_inversion");
    }

    void say()
    {
        for (const std::string & message : dialogs_.messages) std::printf("message: %s\n", message.c_str());
        dialogs_.messages.clear();
    }

private:
    QTabWidget & tabs() { return *window_.findChild<QTabWidget *>(QStringLiteral("Tab_inversion")); }

    void write(QWidget & shown, const QString & name)
    {
        constexpr int smallest = 0; // of files, at the price of time
        const QImage image = shown.grab().toImage().convertToFormat(QImage::Format_RGB32);
        if (!with_few_colours(image).save(folder_ + QLatin1Char('/') + name + QStringLiteral(".png"), "PNG", smallest))
            std::printf("cannot save %s\n", qPrintable(name));
    }

    MainWindow & window_;
    RecordedDialogs & dialogs_;
    QString folder_;
};

void set(MainWindow & window, const std::string & control, int index, const char * text)
{
    auto & box = dynamic_cast<QLineEdit &>(*window.view().widget_of(control, index));
    box.setText({});
    QTest::keyClicks(&box, QLatin1String(text));
    QTest::keyClick(&box, Qt::Key_Return);
}

/// The field at the bundled survey, in the middle of the time in which it was flown.
IgrfRecord osborne_field(Host & host)
{
    IgrfRecord record;
    const IgrfTexts texts = { "1/7/1990", "140.572", "-22.091", "317" };
    if (calculate_igrf(texts, record, host) != Status::good) std::puts("no field");
    record.name = "Osborne";
    return record;
}

void picture_refined(MainWindow & window, Camera & camera, RecordedDialogs & dialogs, const TemporaryFolder & scratch,
                     const std::string & definition)
{
    dialogs.picks = { scratch.write("base.msh", base_mesh) };
    window.press("menu_define_inversion_mode", 1);
    for (const int part : { 1, 2, 3 }) { // parameters, data and topography
        dialogs.picks = { definition };
        window.press("menu_read_file", part);
    }
    const struct {
        const char * control;
        int index;
        const char * text;
    } boxes[] = { { "Text_z_blend", 0, "0" },      { "Text_cell_size", 0, "100" },  { "Text_cell_size", 1, "100" },
                  { "Text_cell_size", 2, "50" },   { "Text_min_val", 2, "-400" },   { "Text_z_blend", 0, "2" },
                  { "Text_x_tile_size", 0, "64" }, { "Text_y_tile_size", 0, "64" }, { "Text_blend_overlap", 0, "4" },
                  { "Text_tile_overlap", 0, "8" } };
    for (const auto & box : boxes) set(window, box.control, box.index, box.text);
    window.press("Command_update", 3);
    camera.page("6_tiles", 5);
    camera.paused(QStringLiteral("9_layout_tiles"));
}

/// The pages again on a screen of a high resolution.
void picture_again(Camera & camera, const QString & suffix)
{
    camera.page(qPrintable(QStringLiteral("2_data") + suffix), 1);
    camera.page(qPrintable(QStringLiteral("5_parameters") + suffix), 4);
}

}

int main(int argument_count, char ** arguments)
{
    if (argument_count < 3) {
        std::puts("usage: screenshots DEFINITION FOLDER [SUFFIX]\nSUFFIX: only some pages, with this at the end of their names");
        return 2;
    }
    const std::string definition = definition_path(std::filesystem::absolute(arguments[1]));
    const QString folder = QDir(QString::fromLocal8Bit(arguments[2])).absolutePath();
    QDir().mkpath(folder);
    QApplication application(argument_count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    const TemporaryFolder scratch;
    KeptSettings settings;
    settings.write("ZEB_QVinv3d_setup", "Colours", argument_count > 3 && std::string(arguments[3]) == "_dark" ? "dark" : "light");
    RecordedLauncher launcher;
    PictureDialogs dialogs;
    MainWindow window(settings, launcher, &dialogs);
    Camera camera(window, dialogs, folder);
    window.resize(1280, 800);
    window.show();
    window.open_definition(definition);
    window.press("Command_update", 3);
    if (argument_count > 3) {
        const QString suffix = QString::fromLocal8Bit(arguments[3]);
        if (suffix == QLatin1String("_dark"))
            camera.layout(QStringLiteral("8_layout") + suffix);
        else
            picture_again(camera, suffix);
        return 0;
    }
    for (const PagePicture & page : pages) camera.page(page.name, page.page);
    camera.layout(QStringLiteral("8_layout"));
    set(window, "Text_cell_size", 0, "10O");
    set(window, "Text_cell_size", 1, "-5");
    camera.page("4_mesh_marks", 3);
    set(window, "Text_cell_size", 0, "100");
    set(window, "Text_cell_size", 1, "100");
    dialogs.messages.clear();
    window.press("Command_checklist");
    camera.save(*window.findChild<QDialog *>(QStringLiteral("Frame_checklist")), QStringLiteral("10_check_list"));
    window.press("Command_close_checklist");
    camera.dialog(QStringLiteral("11_transform"), [&] { define_transform(window, PointTransform(), window.host()); });
    IgrfRecord field = osborne_field(window.host());
    settings.write("IGRF", field.name, "");
    const SurveyPlace survey = { field.latitude, field.longitude, {}, {} };
    camera.dialog(QStringLiteral("15_field"), [&] { define_igrf(window, field, &survey, window.host()); });
    dialogs.parent = &window;
    dialogs.picks = { scratch.write("section.inv", "1 2\n11 x\n6\nTrapezoidal Grid used") };
    camera.dialog(QStringLiteral("12_options"), [&window] { window.press("menu_define_inversion_mode", 1); });
    dialogs.messages.clear();
    const std::filesystem::path surveys = std::filesystem::temp_directory_path() / "surveys"; // as it is read in the pictures
    set(window, "Dir1", 0, definition_path(surveys).c_str());
    set(window, "Text_directory_name", 0, "osborne");
    camera.run(QStringLiteral("13_run"));
    camera.page("14_created", 6);
    std::filesystem::remove_all(surveys / "osborne");
    picture_refined(window, camera, dialogs, scratch, definition);
    camera.say();
    if (const QStringList unjoined = window.view().unjoined(); !unjoined.isEmpty())
        std::printf("not joined:\n%s\n", qPrintable(unjoined.join(QLatin1Char('\n'))));
    return 0;
}
