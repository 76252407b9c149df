#include "app/file_settings.h"
#include "app/system_launcher.h"
#include "desktop/main_window.h"

#include <QApplication>

#include <clocale>

int main(int argument_count, char ** arguments)
{
    QApplication application(argument_count, arguments);
    std::setlocale(LC_NUMERIC, "C"); // numbers in files and boxes never follow the user's language
    QApplication::setApplicationName(QStringLiteral("zeb_qvinv3d_setup"));
    QApplication::setApplicationVersion(QStringLiteral(PROGRAM_VERSION));
    FileSettings settings;
    SystemLauncher launcher(settings);
    MainWindow window(settings, launcher);
    window.show();
    return QApplication::exec();
}
