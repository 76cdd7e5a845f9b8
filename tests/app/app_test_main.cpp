#include "tour.h"

#include <app/application.h>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    tqx::Tour::FixSurroundings();
    testing::InitGoogleTest(&argc, argv);
    tqx::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
