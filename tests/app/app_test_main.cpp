#include <app/application.h>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    tqx::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
