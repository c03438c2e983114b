#pragma once

// Widget tests need one QApplication for the whole test executable; gtest owns
// main(), so it is created on first use and kept until the process ends. The
// platform (offscreen) is chosen by the test registration, not here.

#include <QApplication>
#include <gtest/gtest.h>

namespace trackloom::testing {

inline QApplication& testApplication() {
    static int argc = 1;
    static char name[] = "trackloom-tests";
    static char* argv[] = {name, nullptr};
    static auto* application = new QApplication(argc, argv);
    return *application;
}

/// A fixture base that makes sure the application exists before any member
/// widget of the derived fixture is constructed.
class ApplicationTest : public ::testing::Test {
  protected:
    ApplicationTest() { testApplication(); }
};

} // namespace trackloom::testing
