#pragma once

#include "app/App.h"
#include "document/Window1.h"
#include "toolkit/ScriptedPlatform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

/// A folder of its own for each test. Preferences land there too.
class TestFolder {
public:
    TestFolder() : path((std::filesystem::temp_directory_path() / "quorrin-XXXXXX").string())
    {
        if (!mkdtemp(path.data()))
            throw std::runtime_error("cannot make " + path);
        setenv("XDG_DATA_HOME", path.c_str(), true);
    }
    ~TestFolder() { std::filesystem::remove_all(path); }

    quorrin::Ref<quorrin::FolderItem> file(const std::string& name) const
    {
        return quorrin::New<quorrin::FolderItem>(path + "/" + name);
    }

    std::string path;
};

/// The program as it stands after its start, with nobody at it.
class Program : public testing::Test {
private:
    struct StartedApp : quorrin::App {
        StartedApp() { Event_Open(); }
    };

protected:
    Program() { window.Event_Open(); }

    TestFolder folder;
    quorrin::ScriptedPlatform person;
    StartedApp app;
    quorrin::Window1 window;
};
