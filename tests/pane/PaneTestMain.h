// The main function of a test with a window: a session bus of its own, the platform's own dialogs and styles
// out of the way, then the test.
#pragma once

#include <QApplication>
#include <QTest>

#include "support/PrivateBus.h"

#define QUORVI_PANE_TEST_MAIN(TestClass)                                                                     \
    int main(int argc, char** argv) {                                                                        \
        const quorvi::test::PrivateBus bus;                                                                  \
        if (qEnvironmentVariableIsEmpty("DISPLAY"))                                                          \
            qputenv("QT_QPA_PLATFORM", "offscreen");                                                         \
        QApplication application(argc, argv);                                                                \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
