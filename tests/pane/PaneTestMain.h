// The main function of a test of the pane.
#pragma once

#include "support/SessionTestMain.h"

#define QUORVI_PANE_TEST_MAIN(TestClass) QUORVI_SESSION_TEST_MAIN(TestClass)
