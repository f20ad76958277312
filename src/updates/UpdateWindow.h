// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"
#include "support/Signal.h"
#include "updates/UpdatePresenter.h"

#include <QPointer>

#include <functional>
#include <string>

namespace calmora {

/// Shows answers in one small, modeless window, which is raised with each answer.
class UpdateWindow final : public UpdatePresenter {
  public:
    /// Opens a web page.
    using OpenPage = std::function<void(const std::string&)>;

    UpdateWindow(Image icon, OpenPage openPage);
    UpdateWindow(const UpdateWindow&) = delete;
    UpdateWindow& operator=(const UpdateWindow&) = delete;
    ~UpdateWindow() override;

    void show(const UpdateReport& report) override;
    [[nodiscard]] Subscription onClosed(std::function<void()> handler) override;

  private:
    class Panel;

    Image icon_;
    OpenPage openPage_;
    Signal<> closed_;
    QPointer<Panel> panel_;
};

} // namespace calmora
