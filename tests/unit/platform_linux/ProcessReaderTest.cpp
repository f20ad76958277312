#include "platform/linux/proc/ProcessReader.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace calmora {
namespace {

/// A proc file system of one process and the files that it may run.
class ProcessReaderTest : public testing::Test {
  protected:
    ProcessReaderTest() {
        folder.write("proc/7/stat", "7 (x) S 1 7 7 0 -1 0 0 0 0 0 0 0 0 0 20 0 1 0 99 0 0 0\n");
        folder.write("proc/7/status", "Uid:\t1000\t1000\t1000\t1000\n");
        for (const char* script : {"a/main.py", "b/main.py", "a/tool.py", "zip/__main__.py"}) {
            folder.write(script, "#!/usr/bin/python3\n");
        }
        folder.write("a/clock.odd", "#!" + path("odd") + " -x\n");
        folder.write("odd", "x");
        folder.write("odd (deleted)", "x");
        std::filesystem::create_symlink("a/tool.py", folder.path() / "link");
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return (folder.path() / name).string();
    }

    /// The details of a process of these arguments, which works in the folder `cwd` and was
    /// started by a shell in `pwd`.
    ProcessDetails details(const std::vector<std::string>& arguments, const std::string& executable,
                           const std::string& cwd, const std::string& pwd) const {
        std::string line;
        for (const std::string& word : arguments) {
            line += word + '\0';
        }
        folder.write("proc/7/cmdline", line);
        folder.write("proc/7/environ", "PWD=" + path(pwd));
        for (const auto& [name, target] : {std::pair("exe", executable), {"cwd", path(cwd)}}) {
            const auto link = folder.path() / "proc/7" / name;
            std::filesystem::remove(link);
            if (!target.empty()) {
                std::filesystem::create_symlink(target, link);
            }
        }
        return ProcessReader(folder.path() / "proc").details(7).value();
    }

    TempFolder folder;
};

TEST_F(ProcessReaderTest, FindsTheFileThatTheArgumentsMean) {
    struct Case {
        std::vector<std::string> arguments;
        const char* cwd;
        const char* pwd;
        /// Empty for none.
        const char* file;
    };

    for (const auto& [arguments, cwd, pwd, file] : std::vector<Case>{
             {{"python3", path("link")}, "", "", "a/tool.py"},
             {{"python3", "tool.py"}, "a", "a", "a/tool.py"},
             {{"python3", "tool.py"}, "b", "a", "a/tool.py"}, // Left its folder.
             {{"python3", "tool.py"}, "a", "b", "a/tool.py"}, // Was started elsewhere.
             {{"python3", "main.py"}, "a", "b", ""},          // Either.
             {{"python3", "main.py"}, "a", "none", "a/main.py"},
             {{"python3", "other.py"}, "a", "b", ""},
             {{"python3", path("zip")}, "", "", "zip/__main__.py"},
             {{"python3", path("a")}, "", "", ""},
             {{"python3", "/usr"}, "", "", ""},
             {{"python3", "-m", "main.py"}, "a", "a", ""},
             {{"a title", path("a/main.py")}, "a", "a", ""}}) {
        const auto found = details(arguments, "/usr/bin/python3.11", cwd, pwd);
        EXPECT_EQ(found.commandPath.value_or(""), *file ? path(file) : "")
            << testing::PrintToString(arguments) << cwd;
        EXPECT_FALSE(found.runsScript);
    }
}

TEST_F(ProcessReaderTest, KnowsAnInterpreterByTheScriptThatStartsIt) {
    for (const auto& arguments : {std::vector<std::string>{"odd", path("a/clock.odd")},
                                  {"odd", "-x", path("a/clock.odd")},
                                  {"odd", "-x", "./clock.odd"}}) {
        const auto found = details(arguments, path("odd"), "a", "a");
        EXPECT_TRUE(found.runsScript);
        EXPECT_EQ(found.commandPath, path("a/clock.odd"));
    }
    // An editor that shows a script.
    EXPECT_FALSE(details({"editor", path("a/clock.odd")}, "/usr/bin/editor", "", "").commandPath);
    // What cannot be read is known by its arguments alone.
    EXPECT_EQ(details({path("odd")}, "", "", "").commandPath, path("odd"));
    EXPECT_FALSE(details({path("a")}, "", "", "").commandPath);
}

TEST_F(ProcessReaderTest, TakesTheMarkOfADeletedFileForNothingElse) {
    EXPECT_EQ(details({"x"}, path("gone") + " (deleted)", "", "").executable, path("gone"));
    EXPECT_EQ(details({"x"}, path("odd (deleted)"), "", "").executable, path("odd (deleted)"));
    EXPECT_FALSE(details({"x"}, path("a") + " (deleted)", "", "").executable);
}

} // namespace
} // namespace calmora
