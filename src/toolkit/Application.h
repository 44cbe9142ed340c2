#pragma once

#include "toolkit/Files.h"

#include <memory>
#include <string>

namespace quorrin {

/// The application as its desktop sees it.
class Application {
public:
    virtual ~Application() = default;
    /// Called once at start.
    virtual void Event_Open() {}
    /// A file that the system hands over.
    virtual void Event_OpenDocument(const Ref<FolderItem>& item) { static_cast<void>(item); }

    /// Whether the program ends when its main window has closed.
    bool AutoQuit = false;
    /// The version of the build, as "1.2.3".
    static std::string Version();
};

/// Sets the toolkit up for a program without a screen (pictures, text, files, PDF), for its own lifetime. A program
/// with windows has its own.
class ScreenlessToolkit {
public:
    ScreenlessToolkit(int& argc, char** argv);
    ~ScreenlessToolkit();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// Makes the pictures in the executable known; called by whoever sets up the toolkit.
void registerArt();

} // namespace quorrin
