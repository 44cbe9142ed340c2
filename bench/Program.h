#pragma once

#include "Maps.h"

#include "app/App.h"
#include "toolkit/ScriptedPlatform.h"

#include <filesystem>
#include <string>

/// The program as it stands after its start with one of the measured maps, and a folder of its own for files.
struct Program {
    explicit Program(Density density)
    {
        app.Event_Open();
        window.Event_Open();
        fillMap(window, density);
    }

    struct BenchApp : quorrin::App {
        void SetupPreferences() override {}
    };
    quorrin::ScriptedPlatform person;
    BenchApp app;
    quorrin::Window1 window;
};
