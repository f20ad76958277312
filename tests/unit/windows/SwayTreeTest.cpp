// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayTree.h"

namespace calmora {
namespace {

TEST(SwayTree, GivesTheViewsOfARecordedTree) {
    // Recorded from sway 1.7, without what is not read.
    constexpr auto recorded = R"({"id":1,"type":"root","focused":false,"window":null,"nodes":[
      {"id":2147483647,"type":"output","nodes":[{"id":2147483646,"type":"workspace",
        "name":"__i3_scratch","nodes":[],"floating_nodes":[
          {"id":4,"type":"floating_con","focused":false,"window":null,"nodes":[],
           "fullscreen_mode":1,"visible":false,
           "floating_nodes":[],"pid":16900,"app_id":"foot","shell":"xdg_shell"}]}]},
      {"id":3,"type":"output","focused":false,"name":"HEADLESS-1","nodes":[
        {"id":5,"type":"workspace","focused":false,"name":"1","window":null,"nodes":[
          {"id":9,"type":"con","layout":"tabbed","focused":false,"window":null,"nodes":[
            {"id":8,"type":"con","focused":true,"window":4194316,"nodes":[],"floating_nodes":[],
             "pid":16860,"app_id":null,"shell":"xwayland","window_properties":{"class":"XTerm",
             "instance":"xterm","title":"sleep","transient_for":null}},
            {"id":7,"type":"con","focused":false,"window":null,"nodes":[],"floating_nodes":[],
             "fullscreen_mode":1,"visible":true,
             "pid":16858,"app_id":"foot","shell":"xdg_shell"}],"floating_nodes":[]}],
         "floating_nodes":[]}],"floating_nodes":[]}],"floating_nodes":[]})";
    const std::vector<SwayView> expected{
        {.id = 4, .process = 16900, .isFloating = true, .applicationId = "foot"},
        {.id = 7, .process = 16858, .isFullScreen = true, .applicationId = "foot"},
        {.id = 8,
         .process = 16860,
         .hasFocus = true,
         .x11Id = 4194316,
         .instance = "xterm",
         .className = "XTerm"}};
    EXPECT_EQ(parseSwayTree(recorded), expected);

    const std::string text = recorded;
    for (std::size_t length = 0; length < text.size(); length += 7) {
        EXPECT_EQ(parseSwayTree(text.substr(0, length)), std::nullopt) << length;
    }
    // What is out of range is unknown, and a window of an unknown shell is none to be closed.
    const auto odd = parseSwayTree(
        R"({"type":"root","nodes":[{"id":2,"pid":-1,"shell":"other","window":"x","app_id":5},
            {"id":-3,"shell":"xdg_shell"},{"id":6,"pid":4294967297,"shell":"xdg_shell"},3,null],
            "floating_nodes":"nodes"})");
    EXPECT_EQ(odd, (std::vector<SwayView>{{.id = 2, .x11Id = 0}, {.id = 6}}));
    EXPECT_EQ(parseSwayTree(R"([{"success":true}])"), std::nullopt);
    EXPECT_EQ(parseSwayTree(std::string(100'000, '[')), std::nullopt);
}

TEST(SwayTree, ReadsEventsAndReplies) {
    const std::pair<const char*, SwayChange> events[] = {
        {R"({"change":"new","container":{"id":5}})", SwayChange::windows},
        {R"({"change":"close","container":{}})", SwayChange::windows},
        {R"({"change":"floating"})", SwayChange::windows},
        {R"({"change":"focus","container":{"id":5}})", SwayChange::focus},
        {R"({"change":"title","container":{"id":5}})", SwayChange::none},
        {R"({"change":5})", SwayChange::none},
        {R"({"change":"new")", SwayChange::none},
    };
    for (const auto& [text, expected] : events) {
        EXPECT_EQ(parseSwayWindowEvent(text), expected) << text;
    }
    EXPECT_TRUE(parseSwaySuccess(R"([{"success":true}])"));
    for (const char* failure : {R"([{"success":false,"error":"No matching node."}])", "[]", "{}",
                                R"([{"success":true},{"success":false}])", ""}) {
        EXPECT_FALSE(parseSwaySuccess(failure)) << failure;
    }
}

TEST(SwayTree, TakesForDialogsOnlyWhatComesUpWhenAsked) {
    const std::vector<SwayView> views{
        {.id = 5, .process = 10}, {.id = 6, .process = 10, .isFloating = true},
        {.id = 7, .process = 20}, {.id = 8, .process = 10, .isFloating = true},
        {.id = 9, .process = 10}, {.id = 10, .process = 30, .isFloating = true}};

    const struct {
        const char* what;
        std::size_t view;
        WindowId newestAsked;
        WindowId parent;
    } cases[] = {
        {"a question", 3, 7, 6},
        {"never asked", 3, 0, 0},
        {"it was there when asked", 3, 8, 0},
        {"floated by the user", 1, 7, 0},
        {"tiled", 4, 7, 0},
        {"a process that had nothing before", 5, 9, 0},
    };

    for (const auto& test : cases) {
        EXPECT_EQ(swayDialogParent(views[test.view], views, test.newestAsked), test.parent)
            << test.what;
    }
}

} // namespace
} // namespace calmora
