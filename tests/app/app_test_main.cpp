#include "tour.h"

#include <app/console_program.h>

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    tqx::Tour::FixSurroundings();
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    tqx::SetUpApplication(application);
    return RUN_ALL_TESTS();
}
