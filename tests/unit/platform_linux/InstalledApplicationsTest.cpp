#include "platform/linux/xdg/InstalledApplications.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <thread>

#include <sys/stat.h>

namespace calmora {
namespace {

std::string entryText(const std::string& name, const std::string& more = {}) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + name + "\n" + more;
}

class InstalledApplicationsTest : public testing::Test {
  protected:
    [[nodiscard]] BaseDirectories directories() const {
        BaseDirectories result;
        result.home = folder.path();
        result.dataHome = folder.path() / "user";
        result.dataDirs = {folder.path() / "local", folder.path() / "system"};
        result.configHome = folder.path() / "config";
        result.configDirs = {folder.path() / "etc"};
        result.executableDirs = {folder.path() / "bin", folder.path() / "usr/bin"};
        result.currentDesktops = {"xfce"};
        return result;
    }

    /// Entries below a folder of applications, by file and name or, with a "[", whole text.
    void write(const std::string& where, const std::map<std::string, std::string>& entries) const {
        for (const auto& [id, text] : entries) {
            folder.write(where + "/" + id + ".desktop",
                         text.starts_with("[") ? text : entryText(text));
        }
    }

    /// The index as it is now.
    const DesktopEntryIndex& index() {
        installed.refresh();
        return installed.index();
    }

    /// Right after a change the time stamps cannot tell; soon they can.
    void settle() {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (installed.refresh() && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    TempFolder folder;
    InstalledApplications installed{directories(), {}};
};

TEST_F(InstalledApplicationsTest, TakesTheFirstOfEachId) {
    const std::string hidden = "[Desktop Entry]\nHidden=true\n";
    write("user/applications", {{"a", "users"}, {"gone", hidden}, {"broken", "[no entry at all"}});
    write("system/applications",
          {{"a", "systems"}, {"kde/deep/b", "deep"}, {"gone", "gone"}, {"broken", "whole"}});
    EXPECT_EQ(index().withId("a")->name, "users");
    EXPECT_EQ(index().withId("kde-deep-b")->name, "deep");
    EXPECT_EQ(index().withId("gone"), nullptr);
    EXPECT_EQ(index().withId("broken")->name, "whole");
    EXPECT_EQ(index().withPath((folder.path() / "user/applications/a.desktop").string())->id, "a");

    write("system/applications", {{"chat", "Chat"}});
    write("etc/autostart", {{"off", "Off"}});
    write("config/autostart", {{"chat", "Chat"}, {"agent", "Agent"}, {"off", hidden}});
    EXPECT_TRUE(index().withId("chat")->isAutostart && index().withId("chat")->isVisible);
    EXPECT_TRUE(index().withId("agent")->isAutostart && !index().withId("agent")->isVisible);
    EXPECT_FALSE(index().withId("off"));
}

TEST_F(InstalledApplicationsTest, LeavesOutWhatCannotStartAndHidesWhatOtherDesktopsShow) {
    chmod(folder.write("bin/there", "x").c_str(), 0755);
    write("system/applications", {{"there", entryText("a", "TryExec=there\n")},
                                  {"missing", entryText("b", "TryExec=missing\n")},
                                  {"path", entryText("c", "TryExec=/no/such/file\n")},
                                  {"ours", entryText("d", "OnlyShowIn=XFCE;\n")},
                                  {"theirs", entryText("e", "OnlyShowIn=KDE;\n")},
                                  {"notours", entryText("f", "NotShowIn=XFCE;\n")}});
    EXPECT_TRUE(index().withId("there"));
    EXPECT_FALSE(index().withId("missing") || index().withId("path"));
    EXPECT_TRUE(index().withId("ours")->isVisible);
    EXPECT_FALSE(index().withId("theirs")->isVisible || index().withId("notours")->isVisible);
}

TEST_F(InstalledApplicationsTest, FindsTheFilesThatEntriesStart) {
    const std::string base = folder.path().string();
    for (const char* program : {"bin/tool", "bin/script", "opt/x-1/x", "opt/x-2/x", "opt/run/go.sh",
                                "snap", "firejail", "usr/bin/browser"}) {
        const std::string name = program;
        const bool isScript = name.ends_with("script") || name.ends_with(".sh");
        chmod(folder.write(name, isScript ? "#!/bin/sh\n" : "x").c_str(), 0755);
    }
    std::filesystem::create_symlink("../opt/x-1/x", folder.path() / "bin/linked");
    std::filesystem::create_symlink("x-1", folder.path() / "opt/x");
    std::filesystem::create_symlink("../snap", folder.path() / "bin/spotify");
    std::filesystem::create_symlink("../firejail", folder.path() / "bin/browser");
    const auto exec = [](const std::string& value, const std::string& more = {}) {
        return "[Desktop Entry]\nType=Application\nName=N\nExec=" + value + "\n" + more;
    };
    write("system/applications", {{"bare", exec("tool %U")},
                                  {"whole", exec(base + "/bin/tool")},
                                  {"script", exec("env X=1 script")},
                                  {"linked", exec("linked")},
                                  {"outside", exec(base + "/opt/x/x")},
                                  {"python", exec("python3 " + base + "/opt/run/go.sh")},
                                  {"here", exec("./go.sh", "Path=" + base + "/opt/run\n")},
                                  {"snap", exec("spotify")},
                                  {"jail", exec("browser")},
                                  {"missing", exec("nothing")},
                                  {"folder", exec(base + "/opt")}});

    struct Case {
        const char* id;
        const char* path;
        const char* interpreter;
        bool isInPath;
    };

    for (const Case& test :
         {Case{"bare", "bin/tool", "", true}, Case{"whole", "bin/tool", "", true},
          Case{"script", "bin/script", "sh", true}, Case{"linked", "opt/x-1/x", "", true},
          Case{"outside", "opt/x-1/x", "", false}, Case{"python", "opt/run/go.sh", "python", false},
          Case{"here", "opt/run/go.sh", "sh", false}, Case{"snap", "bin/spotify", "", true},
          Case{"jail", "usr/bin/browser", "", true}, Case{"missing", "", "", false},
          Case{"folder", "", "", false}}) {
        const DesktopEntry* entry = index().withId(test.id);
        ASSERT_TRUE(entry) << test.id;
        EXPECT_EQ(entry->execPath, *test.path ? base + "/" + test.path : "") << test.id;
        EXPECT_EQ(entry->execInterpreter, test.interpreter) << test.id;
        EXPECT_EQ(entry->isInPath, test.isInPath) << test.id;
    }
    // An update that leads a link elsewhere changes no desktop file.
    settle();
    std::filesystem::remove(folder.path() / "opt/x");
    std::filesystem::create_symlink("x-2", folder.path() / "opt/x");
    EXPECT_EQ(index().withId("outside")->execPath, base + "/opt/x-2/x");
}

TEST_F(InstalledApplicationsTest, ScansAgainOnlyWhenSomethingChanged) {
    write("system/applications", {{"a", "a"}});
    settle();
    ASSERT_FALSE(installed.refresh());
    write("system/applications", {{"b", "b"}});
    EXPECT_TRUE(index().withId("b"));
    write("user/applications", {{"c", "c"}});
    EXPECT_TRUE(index().withId("c"));
    std::filesystem::remove(folder.path() / "system/applications/a.desktop");
    EXPECT_FALSE(index().withId("a"));
}

TEST_F(InstalledApplicationsTest, FindsTheFileManager) {
    const std::string manager = "Categories=System;FileManager;\n";
    write("system/applications", {{"pcmanfm", entryText("pcmanfm", manager)},
                                  {"thunar", entryText("thunar", manager)},
                                  {"editor", "editor"}});
    folder.write("system/applications/mimeinfo.cache",
                 "[MIME Cache]\ninode/directory=editor.desktop;thunar.desktop;pcmanfm.desktop;\n");
    EXPECT_EQ(index().fileManager(), "thunar");

    // A default that is no file manager does not play its part, and one that is gone neither.
    folder.write("etc/mimeapps.list",
                 "[Default Applications]\n"
                 "inode/directory=editor.desktop;gone.desktop;pcmanfm.desktop\n");
    EXPECT_EQ(index().fileManager(), "pcmanfm");

    folder.write("config/xfce-mimeapps.list",
                 "[Default Applications]\ninode/directory=thunar.desktop\n");
    EXPECT_EQ(index().fileManager(), "thunar");
    std::filesystem::remove(folder.path() / "etc/mimeapps.list");
    folder.write("config/xfce-mimeapps.list",
                 "[Removed Associations]\ninode/directory=thunar.desktop\n");
    EXPECT_EQ(index().fileManager(), "pcmanfm") << "a more important list took it out";
}

TEST_F(InstalledApplicationsTest, ChoosesAmongEntriesThatShareAKey) {
    const auto entry = [](const char* id, const char* exec, bool visible) {
        return DesktopEntry{.id = id,
                            .name = "Same",
                            .unlocalizedName = "Same",
                            .exec = exec,
                            .execKey = "tool",
                            .startupWmClass = "Tool",
                            .isVisible = visible};
    };
    std::vector<DesktopEntry> entries = {entry("a.hidden", "tool", false),
                                         entry("a.long", "tool --preferences", true),
                                         entry("b.short", "tool %U", true)};
    EXPECT_EQ(DesktopEntryIndex(entries).withExecKey("tool").front()->id, "b.short");
    EXPECT_EQ(DesktopEntryIndex(entries).onlyVisibleWithName("same"), nullptr);
    EXPECT_EQ(DesktopEntryIndex(entries).onlyVisibleWithIdEnd("SHORT")->id, "b.short");
    EXPECT_EQ(DesktopEntryIndex(entries).onlyVisibleWithIdEnd("hidden"), nullptr);
    EXPECT_TRUE(DesktopEntryIndex(entries).withStartupWmClass("tool").empty());
    entries.push_back(entry("tool", "tool --a-very-long-command", false));
    const DesktopEntryIndex index(std::move(entries));
    EXPECT_EQ(index.withExecKey("tool").front()->id, "tool");
    EXPECT_EQ(index.withExecKey("tool").size(), 4U);
    EXPECT_EQ(index.withStartupWmClassIgnoringCase("TOOL").front()->id, "tool");
}

} // namespace
} // namespace calmora
