// The main function of a test with a window and a session bus: the bus is the test's own, then the
// application.
#pragma once

#include <QApplication>
#include <QTest>

#include "support/Fonts.h"
#include "support/PrivateBus.h"

#define QUORVI_SESSION_TEST_MAIN(TestClass)                                                                  \
    int main(int argc, char** argv) {                                                                        \
        const quorvi::test::PrivateBus bus;                                                                  \
        if (qEnvironmentVariableIsEmpty("DISPLAY"))                                                          \
            qputenv("QT_QPA_PLATFORM", "offscreen");                                                         \
        quorvi::test::useFontsOfTheTests();                                                                  \
        QApplication application(argc, argv);                                                                \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
