#pragma once

#include <QApplication>
#include <QtTest>

#include "support/Fonts.h"

/// The main function of a test program of windows. Without a display it draws into memory.
#define QUORVI_WIDGET_TEST_MAIN(TestClass)                                                                   \
    int main(int argc, char** argv) {                                                                        \
        if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))        \
            qputenv("QT_QPA_PLATFORM", "offscreen");                                                         \
        quorvi::test::useFontsOfTheTests();                                                                  \
        QApplication application(argc, argv);                                                                \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
