#pragma once

#include "toolkit/Platform.h"
#include "toolkit/Window.h"

namespace quorrin {

/// The question about several maps that were not saved: what to do with the one chosen in the list.
class frmRecovery : public Window {
public:
    explicit frmRecovery(std::vector<std::string> maps);

    void btnRecover_Action() { close(MessageDialog::Answer::Action); }
    void btnDiscard_Action() { close(MessageDialog::Answer::Alternate); }
    void btnLater_Action() { close(MessageDialog::Answer::Cancel); }

    MessageDialog::Answer Answer = MessageDialog::Answer::Cancel;

    Label Label1{surface(), {20, 16, 480, 20}, "Quorrin Map Maker ended before the changes to these maps were saved:"};
    ListBox ListBox1;
    PushButton btnDiscard{surface(), {20, 216, 110, 22}, "Discard", &frmRecovery::btnDiscard_Action};
    PushButton btnLater{
        surface(), {270, 216, 110, 22}, "Later", &frmRecovery::btnLater_Action, PushButton::Role::Cancel};
    PushButton btnRecover{
        surface(), {390, 216, 110, 22}, "Recover", &frmRecovery::btnRecover_Action, PushButton::Role::Default};

private:
    void close(MessageDialog::Answer answer);
};

} // namespace quorrin
