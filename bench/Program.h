#pragma once

#include "Maps.h"

#include "app/App.h"
#include "toolkit/ScriptedPlatform.h"

/// The program as it stands after its start, with one of the measured maps and nobody at it.
struct Program {
    explicit Program(Density density)
    {
        app.Event_Open();
        window.Event_Open();
        fillMap(window, density);
    }

    quorrin::ScriptedPlatform person;
    quorrin::UnattendedApp app;
    quorrin::Window1 window;
};
