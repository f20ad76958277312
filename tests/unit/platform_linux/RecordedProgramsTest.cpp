#include "IdentityFacts.h"

#include "platform/linux/identity/ApplicationIdentifier.h"
#include "platform/linux/identity/BundlePath.h"

#include <gtest/gtest.h>

#include <fstream>

namespace calmora {
namespace {

std::ifstream recorded(const char* name) {
    return std::ifstream(std::string(CALMORA_RECORDED_PROGRAMS) + "/" + name);
}

std::vector<std::string> fields(const std::string& line) {
    std::vector<std::string> found;
    for (std::size_t start = 0; start <= line.size();) {
        const std::size_t end = std::min(line.find('\t', start), line.size());
        found.push_back(line.substr(start, end - start));
        start = end + 1;
    }
    return found;
}

/// What the recorded entries start.
Files recordedFiles() {
    Files files;
    auto stream = recorded("programs.tsv");
    for (std::string line; std::getline(stream, line);) {
        const auto row = fields(line);
        files[row.at(0)] = {row.at(1), row.at(2), true};
    }
    return files;
}

std::vector<DesktopEntry> recordedEntries() {
    const Files files = recordedFiles();
    std::map<std::string, std::string> texts;
    auto stream = recorded("desktop-entries.txt");
    std::string id;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("### ")) {
            id = line.substr(4);
        } else if (!id.empty()) {
            texts[id] += line + "\n";
        }
    }
    std::vector<DesktopEntry> entries;
    for (const auto& [name, text] : texts) {
        entries.push_back(entryOf(name, text, files));
    }
    return entries;
}

/// Programs of Debian 12 as they were seen running.
TEST(RecordedPrograms, AreRecognisedAndHaveTheirOwnFolders) {
    const DesktopEntryIndex index(recordedEntries(), "pcmanfm");
    ASSERT_GT(index.entries().size(), 20U);
    auto stream = recorded("cases.tsv");
    std::string line;
    std::getline(stream, line);
    const auto head = fields(line);
    std::vector<std::map<std::string, std::string>> rows;
    while (std::getline(stream, line)) {
        const auto values = fields(line);
        ASSERT_EQ(values.size(), head.size()) << line;
        for (auto& row = rows.emplace_back(); const auto& name : head) {
            row[name] = values[row.size()];
        }
    }
    ASSERT_EQ(rows.size(), 21U);
    for (auto& row : rows) {
        SCOPED_TRACE(row["launch_command"]);
        const bool isReadable = row["exe_readable_same_uid"] == "yes";
        const auto isKnown = [](const std::string& value) { return value != "-"; };
        const std::string gtkId = row["gtk_application_id"];
        std::vector<TopLevelWindow> windows;
        for (int id = 1; id <= std::stoi(row["n_windows"]); ++id) {
            windows.push_back(windowOf(static_cast<WindowId>(id), row["wm_instance"],
                                       row["wm_class"], isKnown(gtkId) ? gtkId : ""));
        }
        const auto facts = factsOf(row["command_line"], isReadable ? row["exe"] : "", windows);
        const auto identity = identify(facts, index);
        EXPECT_EQ(identity.desktopId.value_or("-"), row["desktop_id"]);
        EXPECT_EQ(identity.bundleIdentifier,
                  isKnown(row["desktop_id"])
                      ? bundleIdentifierOf(row["desktop_id"], index)
                      : "exe:" + row["exe"] + "." + row["exe"].substr(row["exe"].rfind('/') + 1));
        EXPECT_EQ(identity.localizedName, row["expected_name"]);

        const bool hasFolder = isKnown(row["expected_bundle_path"]);
        const std::string bundle = bundlePath(facts.process, identity, "/home/u", {});
        EXPECT_EQ(privateFolder(facts.process, identity, "/home/u", {}).has_value(), hasFolder);
        EXPECT_EQ(bundle, hasFolder ? row["expected_bundle_path"] + "/" : bundle);
        for (auto& other : rows) {
            EXPECT_EQ(other["exe"].starts_with(bundle), hasFolder && other["exe"] == row["exe"]);
        }
    }
}

} // namespace
} // namespace calmora
