// Starts the tests of the form without a screen.

#include <QApplication>
#include <clocale>
#include <gtest/gtest.h>

int main(int argument_count, char ** arguments)
{
    testing::InitGoogleTest(&argument_count, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argument_count, arguments);
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
