#pragma once

#include "platform/StatusItem.h"

#include <utility>

namespace calmora {

/// A status item that is clicked by calling its action.
class FakeStatusItem final : public StatusItem {
  public:
    void setTemplateImage(const std::optional<Image>& newImage, int newPoints) override {
        image = newImage;
        points = newPoints;
    }

    void setAction(std::function<void(StatusEvent)> newAction) override {
        action = std::move(newAction);
    }

    void setMenu(std::function<std::vector<StatusMenuItem>()> build) override {
        menu = std::move(build);
    }

    void popUpMenu() override { opened.push_back(menu ? menu() : std::vector<StatusMenuItem>{}); }

    std::optional<Rect> frame() const override { return rectangle; }

    std::optional<Image> image;
    int points = 0;
    std::function<void(StatusEvent)> action;
    std::function<std::vector<StatusMenuItem>()> menu;
    /// The menu of every popUpMenu(), in order.
    std::vector<std::vector<StatusMenuItem>> opened;
    std::optional<Rect> rectangle;
};

} // namespace calmora
