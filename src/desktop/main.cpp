#include "app/file_settings.h"
#include "app/system_launcher.h"
#include "desktop/main_window.h"
#include "support/paths.h"

#include <QApplication>
#include <clocale>
#include <filesystem>

int main(int argument_count, char ** arguments)
{
    QApplication application(argument_count, arguments);
    static_cast<void>(std::setlocale(LC_NUMERIC, "C")); // numbers in files and boxes never follow the user's language
    QApplication::setApplicationName(QStringLiteral("zeb_qvinv3d_setup"));
    QApplication::setApplicationVersion(QStringLiteral(PROGRAM_VERSION));
    FileSettings settings;
    SystemLauncher launcher(settings);
    MainWindow window(settings, launcher);
    for (const QString & fault : window.view().unjoined()) qWarning("%s", qPrintable(fault));
    window.show();
    if (argument_count > 1) window.open_definition(definition_path(std::filesystem::absolute(arguments[1])));
    return QApplication::exec();
}
