#pragma once

// View-model tests need one QCoreApplication for the whole test executable;
// gtest owns main(), so it is created on first use. Numbers and dates in status
// texts follow the locale, and the texts under test are German.

#include <QCoreApplication>
#include <QLocale>

namespace trackloom::testing {

inline QCoreApplication& coreApplication() {
    static int argc = 1;
    static char name[] = "trackloom-model-tests";
    static char* argv[] = {name, nullptr};
    static auto* application = [] {
        auto* app = new QCoreApplication(argc, argv);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        return app;
    }();
    return *application;
}

} // namespace trackloom::testing
