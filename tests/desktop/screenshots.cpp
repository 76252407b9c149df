// Writes a picture of every page and dialog of the form, filled from a definition, into a folder.

#include "app/file_commands.h"
#include "desktop/main_window.h"
#include "fakes/recorded_host.h"
#include "support/paths.h"

#include <QApplication>
#include <QDir>
#include <QTest>

#include <clocale>
#include <cstdio>
#include <filesystem>

namespace {

struct PagePicture {
    const char * name;
    int page;
};

constexpr PagePicture pictures[] = { { "1_solver", 0 },     { "2_data", 1 },  { "3_topography", 2 }, { "4_mesh", 3 },
                                 { "5_parameters", 4 }, { "6_tiles", 5 }, { "7_create", 6 } };

void save(QWidget & window, const QString & folder, const QString & name)
{
    QTest::qWait(150);
    if (!window.grab().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"))) std::printf("cannot save %s\n", qPrintable(name));
}

}

int main(int argument_count, char ** arguments)
{
    if (argument_count != 3) {
        std::puts("usage: screenshots DEFINITION FOLDER");
        return 2;
    }
    const std::string definition = definition_path(std::filesystem::absolute(arguments[1]));
    const QString folder = QDir(QString::fromLocal8Bit(arguments[2])).absolutePath();
    QDir().mkpath(folder);
    QApplication application(argument_count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    KeptSettings settings;
    RecordedLauncher launcher;
    RecordedDialogs dialogs;
    MainWindow window(settings, launcher, &dialogs);
    window.resize(1280, 800);
    window.show();
    window.open_definition(definition);
    auto & pages = *window.findChild<QTabWidget *>(QStringLiteral("Tab_inversion"));
    for (const PagePicture & picture : pictures) {
        pages.setTabVisible(picture.page, true);
        pages.setCurrentIndex(picture.page);
        save(window, folder, QLatin1String(picture.name));
    }
    window.press("Command_view_tiling");
    save(window, folder, QStringLiteral("8_layout"));
    window.press("Command_done_tiling_layout");
    window.press("Command_checklist");
    save(window, folder, QStringLiteral("9_checklist"));
    if (const QStringList unjoined = window.view().unjoined(); !unjoined.isEmpty())
        std::printf("not joined:\n%s\n", qPrintable(unjoined.join(QLatin1Char('\n'))));
    for (const std::string & message : dialogs.messages) std::printf("message: %s\n", message.c_str());
    return 0;
}
