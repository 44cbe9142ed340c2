#include "document/Window1.h"
#include "maze/MazePlacement.h"
#include "toolkit/Platform.h"

namespace quorrin {

namespace {

/// One answer serves both kinds of maze, until the map is made anew.
bool mayMakeMaze(bool& didPrompt, const std::string& question)
{
    if (!didPrompt)
        didPrompt = Confirmed(question, "Create Maze");
    return didPrompt;
}

} // namespace

void Window1::btnMaze_Action()
{
    if (!mayMakeMaze(didMazePrompt,
                     "Generating a maze will change all objects on this layer. Do you want to create a maze?"))
        return;
    placeObjectMaze(*this, DrawingLayer(), isPortrait(), pmObjects.ListIndex);
    RenderMap(true);
    isDirty = true;
}

void Window1::btnWallMaze_Action()
{
    if (!mayMakeMaze(didMazePrompt,
                     "Generating a maze will change all walls on this layer. Do you want to create a maze?"))
        return;
    placeWallMaze(*this, isPortrait());
    RenderMap(true);
    isDirty = true;
}

} // namespace quorrin
