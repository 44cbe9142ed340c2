#pragma once

#include "toolkit/Window.h"

namespace quorrin {

/// What the program is and which version.
class frmAbout : public Window {
public:
    frmAbout();

    void Event_Open() override;
    void Canvas1_Paint(Graphics& g);
    void PushButton1_Action();

    Canvas Canvas1{surface(), {20, 20, 128, 128}, MouseHandlers<frmAbout>{.Paint = &frmAbout::Canvas1_Paint}};
    Label Label1{surface(), {160, 20, 328, 20}, "Quorrin Map Maker"};
    Label lblVersion{surface(), {160, 52, 328, 20}, "version"};
    // Placeholders: the domain is one that can belong to nobody.
    Label lblVersion1{surface(), {160, 84, 328, 20}, "support@quorrin.example"};
    Label lblVersion2{surface(), {160, 116, 328, 20}, "https://quorrin.example"};
    Label Label3{surface(), {20, 160, 468, 20}, "Drawn and written by the Quorrin Map Maker makers"};
    PushButton PushButton1{
        surface(), {224, 192, 80, 22}, "Close", &frmAbout::PushButton1_Action, PushButton::Role::DefaultAndCancel};
};

} // namespace quorrin
