#include "toolkit/Application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const quorrin::ScreenlessToolkit toolkit(argc, argv);
    return RUN_ALL_TESTS();
}
