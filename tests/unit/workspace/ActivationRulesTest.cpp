// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/ActivationRules.h"

#include "fakes/LookUp.h"
#include "platform/linux/workspace/QuitRequests.h"

namespace calmora {
namespace {

TEST(ActivationRules, TheFirstThatAppliesDecides) {
    EXPECT_EQ(activationPolicy({}), ActivationPolicy::prohibited);
    for (bool ActivationFacts::* reason :
         {&ActivationFacts::hasHiddenWindow, &ActivationFacts::hasTrayIcon,
          &ActivationFacts::wasRegular, &ActivationFacts::isAgent}) {
        ActivationFacts facts;
        facts.*reason = true;
        EXPECT_EQ(activationPolicy(facts), ActivationPolicy::accessory);
        facts.hasRegularWindow = true;
        EXPECT_EQ(activationPolicy(facts), ActivationPolicy::regular);
        facts.isShell = true;
        EXPECT_EQ(activationPolicy(facts), ActivationPolicy::prohibited);
        facts.isShell = false;
        facts.isProtected = true;
        EXPECT_EQ(activationPolicy(facts), ActivationPolicy::prohibited);
    }
}

TEST(TopmostAgents, AreTheApplicationsOfTheirTreesAndUnits) {
    // 10 browser -> 11 renderer -> 12 renderer's own child; 20 terminal with a window -> 21 shell
    // -> 22 tool; 30 launcher script that is nothing -> 31 agent; 40 and 41 in one unit.
    const std::vector<AgentCandidate> candidates{
        {10, 1, "browser", true, ""},   {11, 2, "browser", true, ""}, {12, 3, "other", true, ""},
        {22, 4, "tool", true, ""},      {31, 5, "agent", true, ""},   {41, 6, "late", true, "unit"},
        {40, 5, "first", true, "unit"}, {50, 7, "hidden", false, ""}, {60, 8, {}, false, ""}};
    const std::map<ProcessId, ProcessId> parents{{10, 1},  {11, 10}, {12, 11}, {20, 1},
                                                 {21, 20}, {22, 21}, {30, 1},  {31, 30},
                                                 {40, 1},  {41, 1},  {50, 1},  {60, 1}};
    const auto parentOf = [&](ProcessId process) { return lookUp(parents, process).value_or(0); };
    EXPECT_EQ(topmostAgents(candidates, {20}, parentOf), (std::vector<ProcessId>{10, 31, 40}));
    EXPECT_EQ(topmostAgents(candidates, {10, 20, 40}, parentOf), (std::vector<ProcessId>{31}))
        << "what has a window is no agent besides";
    EXPECT_EQ(topmostAgents(candidates, {11, 20, 40}, parentOf), (std::vector<ProcessId>{31}))
        << "what wraps an application is no second one";
    // 70 launcher script -> 71 shell within -> 72 its program, which no entry starts; 73 another.
    const std::vector<AgentCandidate> script{{70, 1, "launcher", true, "", true}};
    const auto chain = [](ProcessId process) {
        return process > 70 && process < 73 ? process - 1 : 1;
    };
    using Agents = std::vector<ProcessId>;
    EXPECT_EQ(topmostAgents(script, {72}, chain), Agents{}) << "its program has the row";
    EXPECT_EQ(topmostAgents(script, {73}, chain), Agents{70}) << "another's program";
    EXPECT_EQ(
        topmostAgents(std::vector<AgentCandidate>{{70, 1, "python", true, "", false}}, {72}, chain),
        Agents{70})
        << "what is no shell script may launch others";
    const auto circle = [](ProcessId process) { return process == 31 ? 30 : 31; };
    EXPECT_TRUE(topmostAgents(candidates, {20}, circle).empty()) << "a circle comes to an end";
}

TEST(QuitRequests, RecogniseTheQuestionThatARequestBrought) {
    const TopLevelWindow main{.id = 1, .process = 10, .type = WindowType::normal};
    const TopLevelWindow second{.id = 3, .process = 10, .type = WindowType::normal};
    const TopLevelWindow dialog{
        .id = 2, .process = 10, .transientFor = 1, .type = WindowType::dialog};
    const TopLevelWindow loose{.id = 2, .process = 10, .type = WindowType::dialog};
    const TopLevelWindow foreign{
        .id = 2, .process = 20, .transientFor = 1, .type = WindowType::dialog};

    QuitRequests requests;
    const std::vector<TopLevelWindow> asking{main, dialog};
    EXPECT_FALSE(requests.isAsking(10, 5, asking)) << "nobody has asked it to quit";
    requests.remember(10, 5, std::vector{main});
    EXPECT_TRUE(requests.isAsking(10, 5, asking));
    EXPECT_TRUE(requests.isAsking(10, 5, std::vector{main, foreign})) << "by another process";
    EXPECT_FALSE(requests.isAsking(10, 6, asking)) << "another process with the same id";
    EXPECT_FALSE(requests.isAsking(10, 5, std::vector{main})) << "it was answered";
    EXPECT_FALSE(requests.isAsking(10, 5, std::vector{main, second})) << "a window is no question";
    EXPECT_TRUE(requests.isAsking(10, 5, std::vector{main, loose})) << "it names no parent";
    EXPECT_FALSE(requests.isAsking(10, 5, std::vector{loose})) << "it took the window's place";
    requests.remember(10, 5, asking);
    EXPECT_FALSE(requests.isAsking(10, 5, asking)) << "it was open before";
}

} // namespace
} // namespace calmora
