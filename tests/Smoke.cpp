#include "app/App.h"
#include "document/Window1.h"
#include "toolkit/ScriptedPlatform.h"
#include <gtest/gtest.h>
using namespace quorrin;
TEST(Smoke, Starts) { ScriptedPlatform p; App app; app.Event_Open(); Window1 w; w.Event_Open(); EXPECT_EQ(w.myCharacters(20)->Number, 0); EXPECT_GT(w.MapText().size(), 1000u); }
