// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

namespace calmora {
namespace {

TEST(CommandLine, IsReadWholeOrNotAtAll) {
    const struct {
        std::vector<std::string> arguments;
        std::optional<CommandLine> expected;
    } cases[] = {
        {{}, CommandLine{}},
        {{"-style", "fusion"}, CommandLine{}}, // The toolkit's.
        {{"--nonsense"}, CommandLine{}},
        {{"--force-quit-all"}, CommandLine{.command = AppCommand::forceQuitAll}},
        {{"--force-quit-all", "--quit-all"}, {}},
        {{"--toggle", "now"}, {}},
        {{"--list"}, CommandLine{.command = AppCommand::list}},
        {{"--list", "--json"}, CommandLine{.command = AppCommand::list, .asJson = true}},
        {{"--quit-all", "--json"}, {}},
        {{"--diagnose", "7", "12"},
         CommandLine{.command = AppCommand::diagnose, .processes = {7, 12}}},
        {{"--diagnose", "0"}, {}},
        {{"--leave", "--quit-all"}, {}},
        {{"--diagnose", "12x"}, {}},
        {{"--diagnose", "99999999999"}, {}},
    };

    for (const auto& [arguments, expected] : cases) {
        EXPECT_EQ(parseCommandLine(arguments), expected) << testing::PrintToString(arguments);
    }
}

} // namespace
} // namespace calmora
