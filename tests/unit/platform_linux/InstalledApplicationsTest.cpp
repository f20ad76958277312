#include "platform/linux/xdg/InstalledApplications.h"
#include "platform/linux/xdg/MimeDefaults.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
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
        result.executableDirs = {folder.path() / "bin"};
        result.currentDesktops = {"xfce"};
        return result;
    }

    TempFolder folder;
};

TEST_F(InstalledApplicationsTest, TakesTheFirstOfEachId) {
    folder.write("user/applications/a.desktop", entryText("users"));
    folder.write("system/applications/a.desktop", entryText("systems"));
    folder.write("system/applications/kde/deep/b.desktop", entryText("deep"));
    folder.write("user/applications/gone.desktop", "[Desktop Entry]\nHidden=true\n");
    folder.write("system/applications/gone.desktop", entryText("gone"));
    folder.write("user/applications/broken.desktop", "no entry at all");
    folder.write("system/applications/broken.desktop", entryText("whole"));
    folder.write("system/applications/org.telegram.desktop.desktop", entryText("Telegram"));
    InstalledApplications installed(directories(), {});
    EXPECT_TRUE(installed.refresh());
    const DesktopEntryIndex& index = installed.index();
    EXPECT_EQ(index.withId("a")->name, "users");
    EXPECT_EQ(index.withId("kde-deep-b")->name, "deep");
    EXPECT_EQ(index.withId("gone"), nullptr);
    EXPECT_EQ(index.withId("broken")->name, "whole");
    EXPECT_EQ(index.withId("org.telegram.desktop")->name, "Telegram");
    EXPECT_EQ(index.withPath((folder.path() / "user/applications/a.desktop").string())->id, "a");
}

TEST_F(InstalledApplicationsTest, LeavesOutWhatCannotStartAndHidesWhatOtherDesktopsShow) {
    chmod(folder.write("bin/there", "x").c_str(), 0755);
    folder.write("system/applications/there.desktop", entryText("a", "TryExec=there\n"));
    folder.write("system/applications/missing.desktop", entryText("b", "TryExec=missing\n"));
    folder.write("system/applications/path.desktop", entryText("c", "TryExec=/no/such/file\n"));
    folder.write("system/applications/ours.desktop", entryText("d", "OnlyShowIn=XFCE;\n"));
    folder.write("system/applications/theirs.desktop", entryText("e", "OnlyShowIn=KDE;\n"));
    folder.write("system/applications/notours.desktop", entryText("f", "NotShowIn=XFCE;\n"));
    InstalledApplications installed(directories(), {});
    installed.refresh();
    const DesktopEntryIndex& index = installed.index();
    EXPECT_TRUE(index.withId("there"));
    EXPECT_FALSE(index.withId("missing"));
    EXPECT_FALSE(index.withId("path"));
    EXPECT_TRUE(index.withId("ours")->isVisible);
    EXPECT_FALSE(index.withId("theirs")->isVisible);
    EXPECT_FALSE(index.withId("notours")->isVisible);
}

TEST_F(InstalledApplicationsTest, KnowsWhatStartsWithTheSession) {
    folder.write("system/applications/chat.desktop", entryText("Chat"));
    folder.write("etc/autostart/chat.desktop", entryText("Chat"));
    folder.write("etc/autostart/agent.desktop", entryText("Agent"));
    folder.write("etc/autostart/off.desktop", entryText("Off"));
    folder.write("config/autostart/off.desktop", "[Desktop Entry]\nHidden=true\n");
    InstalledApplications installed(directories(), {});
    installed.refresh();
    const DesktopEntryIndex& index = installed.index();
    EXPECT_TRUE(index.withId("chat")->isAutostart && index.withId("chat")->isVisible);
    EXPECT_TRUE(index.withId("agent")->isAutostart && !index.withId("agent")->isVisible);
    EXPECT_FALSE(index.withId("off"));
}

TEST_F(InstalledApplicationsTest, ScansAgainOnlyWhenSomethingChanged) {
    folder.write("system/applications/a.desktop", entryText("a"));
    InstalledApplications installed(directories(), {});
    installed.refresh();
    // Right after a change the time stamps cannot tell; soon they can.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (installed.refresh() && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    ASSERT_FALSE(installed.refresh());
    folder.write("system/applications/b.desktop", entryText("b"));
    EXPECT_TRUE(installed.refresh());
    EXPECT_TRUE(installed.index().withId("b"));
    folder.write("user/applications/c.desktop", entryText("c"));
    EXPECT_TRUE(installed.refresh());
    EXPECT_TRUE(installed.index().withId("c"));
    std::filesystem::remove(folder.path() / "system/applications/a.desktop");
    EXPECT_TRUE(installed.refresh());
    EXPECT_FALSE(installed.index().withId("a"));
}

TEST_F(InstalledApplicationsTest, FindsTheFileManager) {
    const std::string manager = "Categories=System;FileManager;\n";
    folder.write("system/applications/pcmanfm.desktop", entryText("pcmanfm", manager));
    folder.write("system/applications/thunar.desktop", entryText("thunar", manager));
    folder.write("system/applications/editor.desktop", entryText("editor"));
    folder.write("system/applications/mimeinfo.cache",
                 "[MIME Cache]\ninode/directory=editor.desktop;thunar.desktop;pcmanfm.desktop;\n");
    InstalledApplications installed(directories(), {});
    installed.refresh();
    EXPECT_EQ(installed.index().fileManager(), "thunar");

    // A default that is no file manager does not play its part, and one that is gone neither.
    folder.write("etc/mimeapps.list",
                 "[Default Applications]\n"
                 "inode/directory=editor.desktop;gone.desktop;pcmanfm.desktop\n");
    installed.refresh();
    EXPECT_EQ(installed.index().fileManager(), "pcmanfm");

    folder.write("config/xfce-mimeapps.list",
                 "[Default Applications]\ninode/directory=thunar.desktop\n");
    installed.refresh();
    EXPECT_EQ(installed.index().fileManager(), "thunar");
}

TEST_F(InstalledApplicationsTest, HidesRemovedAssociationsOfLessImportantLists) {
    const auto first = folder.write("first", "[Removed Associations]\na/b=x.desktop;\n");
    const auto cache = folder.write("cache", "[MIME Cache]\na/b=x.desktop;y.desktop;\n");
    const auto any = [](const std::string&) { return true; };
    EXPECT_EQ(defaultApplication("a/b", {first}, {cache}, any), "y");
    EXPECT_EQ(defaultApplication("a/b", {}, {cache}, any), "x");
    EXPECT_EQ(defaultApplication("a/c", {first}, {cache}, any), "");
}

TEST_F(InstalledApplicationsTest, ChoosesAmongEntriesThatShareAKey) {
    const auto entry = [](const char* id, const char* exec, bool visible) {
        DesktopEntry result;
        result.id = id;
        result.name = result.unlocalizedName = "Same";
        result.exec = exec;
        result.execKey = "tool";
        result.startupWmClass = "Tool";
        result.isVisible = visible;
        return result;
    };
    std::vector<DesktopEntry> entries = {entry("a.hidden", "tool", false),
                                         entry("a.long", "tool --preferences", true),
                                         entry("b.short", "tool %U", true)};
    EXPECT_EQ(DesktopEntryIndex(entries).withExecKey("tool")->id, "b.short");
    EXPECT_EQ(DesktopEntryIndex(entries).onlyVisibleWithName("same"), nullptr);
    EXPECT_EQ(DesktopEntryIndex(entries).onlyVisibleWithIdEnd("SHORT")->id, "b.short");
    EXPECT_EQ(DesktopEntryIndex(entries).onlyVisibleWithIdEnd("hidden"), nullptr);
    EXPECT_EQ(DesktopEntryIndex(entries).withStartupWmClass("tool"), nullptr);
    entries.push_back(entry("tool", "tool --a-very-long-command", false));
    EXPECT_EQ(DesktopEntryIndex(entries).withExecKey("tool")->id, "tool");
    EXPECT_EQ(DesktopEntryIndex(entries).withStartupWmClassIgnoringCase("TOOL")->id, "tool");
}

} // namespace
} // namespace calmora
