#include "app/file_settings.h"
#include "app/system_launcher.h"
#include "desktop/main_window.h"
#include "support/paths.h"

#include <QApplication>
#include <QCommandLineParser>
#include <clocale>
#include <filesystem>

namespace {

/// The log that the command line asks for, and the definition to open, empty for none.
struct CommandLine {
    DebugLog debug;
    std::string definition;
};

std::string whole_path(const QString & path) { return definition_path(std::filesystem::absolute(path.toStdString())); }

CommandLine read_command_line(const QApplication & application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Prepares a 3D inversion of magnetic or gravity survey data."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("definition"), QStringLiteral("Inversion definition to open."),
                                 QStringLiteral("[definition]"));
    const QCommandLineOption debug_log(QStringLiteral("debug-log"),
                                       QStringLiteral("Write a numbered log of what is done to FILE."), QStringLiteral("FILE"));
    parser.addOption(debug_log);
    parser.process(application);
    CommandLine line;
    if (parser.isSet(debug_log)) {
        line.debug.level = 1;
        line.debug.file = whole_path(parser.value(debug_log));
    }
    const QStringList names = parser.positionalArguments();
    if (!names.isEmpty()) line.definition = whole_path(names.front());
    return line;
}

}

int main(int argument_count, char ** arguments)
{
    QApplication application(argument_count, arguments);
    static_cast<void>(std::setlocale(LC_NUMERIC, "C")); // numbers in files and boxes never follow the user's language
    QApplication::setApplicationName(QStringLiteral("zeb_qvinv3d_setup"));
    QApplication::setApplicationVersion(QStringLiteral(PROGRAM_VERSION));
    FileSettings settings;
    SystemLauncher launcher(settings);
    const CommandLine line = read_command_line(application);
    MainWindow window(settings, launcher, nullptr, line.debug);
    for (const QString & fault : window.view().unjoined()) qWarning("%s", qPrintable(fault));
    window.show();
    if (!line.definition.empty()) window.open_definition(line.definition);
    return QApplication::exec();
}
