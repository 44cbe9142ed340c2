#pragma once

#include "document/cCharacter.h"
#include "toolkit/Window.h"

namespace quorrin {

/// The editor of one token, Module1::useThisCharacter. It edits in place: what is changed stands at once, and there is
/// no cancel.
class frmCharacter : public Window {
public:
    frmCharacter();
    ~frmCharacter() override;
    /// The editor that is open, nil for none.
    static const frmCharacter* Current();
    /// Whether the token is another than when the editor opened.
    bool HasChanged() const;

    void Event_Open() override;
    void Canvas1_Paint(Graphics& g);
    void Canvas2_Paint(Graphics& g);
    void Event_Help() override;
    void Event_TakePicture(const std::optional<std::string>& bytes) override;
    void PushButton1_Action();
    bool BevelButton1_MouseDown(int x, int y);
    void PushButton2_Action();
    void TextField1_TextChange();
    void PushButton3_Action();

    /// The picture as it will sit on the token.
    Canvas Canvas2{surface(), {53, 20, 60, 100}, MouseHandlers<frmCharacter>{.Paint = &frmCharacter::Canvas2_Paint}};
    /// The whole token; wider than those of the roster, which is meant so.
    Canvas Canvas1{surface(), {180, 20, 67, 270}, MouseHandlers<frmCharacter>{.Paint = &frmCharacter::Canvas1_Paint}};
    PushButton PushButton1{surface(), {31, 132, 109, 22}, "Load Picture", &frmCharacter::PushButton1_Action};
    BevelButton BevelButton1{surface(), {31, 166, 109, 22}, "Use Internal", &frmCharacter::BevelButton1_MouseDown};
    PushButton PushButton2{surface(), {31, 200, 109, 22}, "Clear", &frmCharacter::PushButton2_Action};
    Label Label1{surface(), {31, 234, 66, 20}, "Number:"};
    TextField TextField1{surface(), {97, 233, 43, 22}, &frmCharacter::TextField1_TextChange};
    PushButton PushButton3{surface(), {66, 302, 135, 22}, "Save && Close", &frmCharacter::PushButton3_Action};

private:
    cCharacter before_;
};

} // namespace quorrin
