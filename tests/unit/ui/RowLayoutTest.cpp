#include "ui/RowLayout.h"

#include <gmock/gmock.h>

namespace calmora {
namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

RowSlot slot(ProcessId pid, int height = 44, int spaceBefore = 2, int lines = 1) {
    return {{lines > 1 ? RowKind::backgroundGroup : RowKind::app, pid}, height, spaceBefore, lines};
}

std::vector<int> tops(const std::vector<PlacedRow>& rows) {
    std::vector<int> all;
    for (const PlacedRow& row : rows) {
        all.push_back(row.top);
    }
    return all;
}

TEST(RowLayout, PlacesRowsBelowEachOtherAndFindsTheVisibleOnes) {
    const std::vector<RowSlot> slots{slot(1, 44, 4), slot(2), slot(3, 32), slot(4)};
    const auto rows = placeRows(slots);
    EXPECT_THAT(tops(rows), ElementsAre(4, 50, 96, 130));
    EXPECT_EQ(findRow(rows, {RowKind::app, 3}), 2U);
    EXPECT_EQ(findRow(rows, {RowKind::backgroundApp, 3}), std::nullopt);

    const std::tuple<int, int, RowRange> sights[] = {
        {0, 50, {0, 1}}, {48, 51, {1, 2}}, {0, 1000, {0, 4}}, {174, 900, {0, 0}}};
    for (const auto& [top, bottom, seen] : sights) {
        EXPECT_EQ(rowsInSight(rows, top, bottom), seen) << top << " to " << bottom;
    }
}

TEST(RowLayout, GlidesFromWhatIsShownToTheTarget) {
    const std::vector<RowSlot> before{slot(1), slot(2), slot(3)};
    const std::vector<RowSlot> after{slot(1), slot(3), slot(4)};
    const auto shown = placeRows(before);
    const auto target = placeRows(after);
    const RowGlide glide(shown, target, RowMotion::removal);
    EXPECT_THAT(tops(glide.at(0ms)), ElementsAre(2, 94, 94));
    EXPECT_EQ(glide.at(0ms)[2].presence, 0);
    const auto half = glide.at(125ms);
    EXPECT_THAT(tops(half), ElementsAre(2, 71, 94));
    EXPECT_EQ(half[2].presence, 0.5);
    EXPECT_EQ(glide.at(250ms), target);
    // A second change starts from where the rows are, not from where they were going.
    EXPECT_THAT(tops(RowGlide(half, shown, RowMotion::count).at(0ms)), ElementsAre(2, 48, 71));
    EXPECT_EQ(RowGlide(shown, target, RowMotion::jump).at(0ms), target);
}

TEST(RowLayout, SkipsLinesThatCannotHaveTheFocus) {
    const std::vector<RowSlot> slots{slot(1), slot(0, 1, 0, 0), slot(2, 120, 0, 3),
                                     slot(0, 1, 0, 0)};
    std::vector<RowLine> way;
    std::optional<RowLine> line;
    while ((line = nextLine(slots, line, 1))) {
        way.push_back(*line);
    }
    EXPECT_THAT(way, ElementsAre(RowLine{0, 0}, RowLine{2, 0}, RowLine{2, 1}, RowLine{2, 2}));
    EXPECT_EQ(nextLine(slots, {}, -1), (RowLine{2, 2}));
    EXPECT_EQ(nextLine(slots, RowLine{2, 0}, -1), (RowLine{0, 0}));
    EXPECT_EQ(nextLine(slots, RowLine{0, 0}, -1), std::nullopt);
    EXPECT_EQ(lineSpan(slots[2], 2), (LineSpan{76, 44}));
}

} // namespace
} // namespace calmora
