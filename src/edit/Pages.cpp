#include "document/Window1.h"

// Which page stands on the right: the map, or what one of the two toggles of the tab "DM" puts in its place.

namespace quorrin {

/// Every change of tab brings the map back, also the one to the tab "DM".
void Window1::TabPanel1_Change()
{
    bbScriptTool.Value = false;
    bbScriptTool.Enabled = true;
    btnCharacterTool.Value = false;
    btnCharacterTool.Enabled = true;
    gbDMObjects.Enabled = true;
    PagePanel1.Value = MapPage;
    // The mouse over the map may now stand on what answers a click, or no longer.
    Canvas1.Invalidate(false);
}

void Window1::bbScriptTool_Action()
{
    gbDMObjects.Enabled = true;
    btnCharacterTool.Enabled = true;
    if (!bbScriptTool.Value) {
        PagePanel1.Value = MapPage;
        return;
    }
    PagePanel1.Value = ScriptPage;
    txtMonster.SetFocus();
    gbDMObjects.Enabled = false;
    btnCharacterTool.Enabled = false;
}

void Window1::btnCharacterTool_Action()
{
    gbDMObjects.Enabled = true;
    bbScriptTool.Enabled = true;
    if (!btnCharacterTool.Value) {
        PagePanel1.Value = MapPage;
        return;
    }
    PagePanel1.Value = CharactersPage;
    // The text lies on a page that does not show now; it gets the focus all the same.
    txtMonster.SetFocus();
    gbDMObjects.Enabled = false;
    bbScriptTool.Enabled = false;
}

void Window1::txtMonster_TextChange()
{
    myScript->Monsters = txtMonster.Text;
    isDirty = true;
}

void Window1::txtGameText_TextChange()
{
    myScript->GamtText = txtGameText.Text;
    isDirty = true;
}

} // namespace quorrin
