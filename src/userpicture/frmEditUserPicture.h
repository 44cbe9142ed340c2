#pragma once

#include "toolkit/FrozenPicture.h"
#include "toolkit/Window.h"

#include <cstdint>
#include <optional>

namespace quorrin {

/// The editor of the free drawing over the map. It takes the drawing from Module1::gPicture and gives it back there,
/// nil after a cancel; Module1::pMain shows under it.
class frmEditUserPicture : public Window {
public:
    frmEditUserPicture();
    ~frmEditUserPicture() override;
    /// The editor that is open, nil for none.
    static const frmEditUserPicture* Current();
    /// The drawing as it is now; nil while nobody has drawn.
    Ref<Picture> Drawn() const;

    /// The drawing; what is clear lets the map show through.
    Ref<Picture> myImage;
    /// The last place of the mouse in a stroke, -1 before the first.
    std::int64_t ox = -1;
    std::int64_t oy = -1;
    /// Set at each press and read nowhere: the direction of a line is asked of the keyboard all along it.
    std::int64_t lineDirection = -1;
    /// Where the stroke began.
    std::int64_t fx = 0;
    std::int64_t fy = 0;
    /// The one step of undo, nil for none.
    Ref<Picture> pUndo;

    void Event_Open() override;
    void Event_EnableMenuItems() override;
    void Event_Help() override;
    void Event_TakePicture(const std::optional<std::string>& bytes) override;
    void Timer1_Action();
    void Canvas1_Open();
    void Canvas1_Paint(Graphics& g);
    bool Canvas1_MouseDown(int x, int y);
    void Canvas1_MouseDrag(int x, int y);
    void Canvas1_MouseUp(int x, int y);
    /// Lays the picture over the whole drawing; nil changes nothing. Takes no step of undo.
    void LayOver(const Ref<Picture>& picture);
    bool _mnuOpenUserPicture_Action();
    bool _mnUPEditUndo_Action();
    bool _mnuClearDrawing_Action();
    bool _mnuSavePicture_Action();
    void PushButton1_Action();
    void PushButton2_Action();

    /// Takes the size of the drawing when the window opens.
    Canvas Canvas1{surface(),
                   {324, 20, 756, 576},
                   MouseHandlers<frmEditUserPicture>{.Paint = &frmEditUserPicture::Canvas1_Paint,
                                                     .MouseDown = &frmEditUserPicture::Canvas1_MouseDown,
                                                     .MouseDrag = &frmEditUserPicture::Canvas1_MouseDrag,
                                                     .MouseUp = &frmEditUserPicture::Canvas1_MouseUp}};
    TabPanel TabPanel1{surface(), {20, 20, 292, 756}, {"Drawing"}};
    const Place penTab = TabPanel1.Page(0);
    Label Label1{penTab, {33, 59, 80, 20}, "Color"};
    PopupMenu PopupMenu1{penTab, {125, 58, 167, 22}, {"Black", "White"}};
    enum PenColor { BlackPen, WhitePen };
    Label Label2{penTab, {33, 93, 80, 20}, "Pen Width"};
    PopupMenu PopupMenu2{penTab, {125, 92, 167, 22}, {"1", "2", "3", "4", "5"}};
    PushButton PushButton2{
        penTab, {33, 734, 80, 22}, "Cancel", &frmEditUserPicture::PushButton2_Action, PushButton::Role::Cancel};
    PushButton PushButton1{
        penTab, {212, 734, 80, 22}, "Apply", &frmEditUserPicture::PushButton1_Action, PushButton::Role::Default};

    Timer Timer1{this, 10, &frmEditUserPicture::Timer1_Action};

private:
    std::optional<FrozenPicture> before_;
};

/// A new picture with an alpha channel, the source drawn on it.
Ref<Picture> copyOf(const Ref<Picture>& source);

} // namespace quorrin
