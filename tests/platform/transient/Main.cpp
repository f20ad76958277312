#include "support/VirtualDesktop.h"

#include <gtest/gtest.h>

#include <QApplication>

/// Usage: calmora_transient_tests WINDOW_MANAGER [Google Test options]
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const calmora::VirtualDesktop desktop({.windowManager = argc > 1 ? argv[1] : "openbox"});
    desktop.enter();
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
