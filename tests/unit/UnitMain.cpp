#include <gtest/gtest.h>

#ifdef HMATNIK_UNIT_GUI
#include <QGuiApplication>
using Application = QGuiApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
#ifdef HMATNIK_UNIT_GUI
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    const Application application(argc, argv);
    return RUN_ALL_TESTS();
}
