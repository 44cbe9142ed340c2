#include "app/frmRecovery.h"

namespace quorrin {

frmRecovery::frmRecovery(std::vector<std::string> maps)
    : Window(Kind::Modal, "Recover Maps", 520, 254), ListBox1(surface(), {20, 44, 480, 156}, std::move(maps))
{
    ListBox1.AccessibleName = "Maps that were not saved";
}

void frmRecovery::close(MessageDialog::Answer answer)
{
    Answer = answer;
    Close();
}

} // namespace quorrin
