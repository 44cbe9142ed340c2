#pragma once

#include "toolkit/Application.h"

namespace quorrin {

/// The application.
class App : public Application {
public:
    void Event_Open() override;
    /// Remembers a map file that the system hands over; only the one that is there when the window opens is opened.
    void Event_OpenDocument(const Ref<FolderItem>& item) override;
    /// Opens the preferences and takes the page setup from them.
    virtual void SetupPreferences();
};

/// The application with nobody at it: it leaves the person's preferences alone.
class UnattendedApp : public App {
    void SetupPreferences() override {}
};

} // namespace quorrin
