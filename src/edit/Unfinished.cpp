#include "document/Window1.h"

// To be replaced by the real operations.
namespace quorrin {
void Window1::TabPanel1_Change()
{}
void Window1::pmLandscape_Change()
{}
void Window1::pmBackground_Change()
{}
void Window1::cbOverlayUserPict_Action()
{}
void Window1::pmBorderTop_Change()
{}
void Window1::pmBorderBottom_Change()
{}
void Window1::pmBorderLeft_Change()
{}
void Window1::pmBorderRight_Change()
{}
void Window1::pmGrid_Change()
{}
void Window1::cbShowClickable_Action()
{}
void Window1::CheckBox1_Action()
{}
void Window1::CheckBox2_Action()
{}
void Window1::CheckBox3_Action()
{}
void Window1::CheckBox4_Action()
{}
void Window1::CheckBox5_Action()
{}
void Window1::CheckBox6_Action()
{}
void Window1::cbDoorTop_Action()
{}
void Window1::cbDoorBottom_Action()
{}
void Window1::cbDoorLeft_Action()
{}
void Window1::cbDoorRight_Action()
{}
bool Window1::rWallColor_MouseDown(int, int)
{
    return true;
}
void Window1::rWallColor_MouseUp(int, int)
{}
void Window1::Canvas2_Paint(Graphics&)
{}
void Window1::PushButton3_Action()
{}
void Window1::NewWall()
{}
Ref<cWall> Window1::ChosenWall()
{
    return New<cWall>();
}
void Window1::pmVisibleLayers_Change()
{}
void Window1::pmObjectLayer_Change()
{}
void Window1::pmObjects_Change()
{}
void Window1::pmColorBW_Change()
{}
void Window1::Canvas3_Paint(Graphics&)
{}
bool Window1::Canvas3_MouseDown(int, int)
{
    return true;
}
void Window1::Canvas3_MouseUp(int, int)
{}
void Window1::btnClearAllSquares_Action()
{}
void Window1::cbShowDMObjects_Action()
{}
void Window1::pmDM_Change()
{}
void Window1::cvDMPreview_Paint(Graphics&)
{}
bool Window1::cvDMPreview_MouseDown(int, int)
{
    return true;
}
void Window1::cvDMPreview_MouseUp(int, int)
{}
void Window1::bbScriptTool_Action()
{}
void Window1::btnCharacterTool_Action()
{}
void Window1::txtMonster_TextChange()
{}
void Window1::txtGameText_TextChange()
{}
void Window1::Canvas1_Paint(Graphics&)
{}
bool Window1::Canvas1_MouseDown(int, int)
{
    return false;
}
void Window1::Canvas1_MouseUp(int, int)
{}
bool Window1::Canvas1_ConstructContextualMenu(MenuItem&, int, int)
{
    return false;
}
bool Window1::Canvas1_ContextualMenuAction(const MenuItem&)
{
    return false;
}
void Window1::ShowObjectPopupMenu(MenuItem&, const std::string&)
{}
bool Window1::_mnuClearAllObjects_Action()
{
    return true;
}
bool Window1::_mnuClearObjectCurLayer_Action()
{
    return true;
}
bool Window1::_mnuClearAllWalls_Action()
{
    return true;
}
void Window1::ClearAllWallChecks()
{}
} // namespace quorrin
