#pragma once

#include "platform/Image.h"
#include "support/Signal.h"
#include "updates/UpdatePanel.h"
#include "updates/UpdatePresenter.h"

#include <QPointer>

namespace calmora {

/// Shows answers in one small, modeless window, which is raised with each answer.
class UpdateWindow final : public UpdatePresenter {
  public:
    UpdateWindow(Image icon, UpdatePanel::OpenPage openPage);
    UpdateWindow(const UpdateWindow&) = delete;
    UpdateWindow& operator=(const UpdateWindow&) = delete;
    ~UpdateWindow() override;

    void show(const UpdateReport& report) override;
    [[nodiscard]] Subscription onClosed(std::function<void()> handler) override;

  private:
    Image icon_;
    UpdatePanel::OpenPage openPage_;
    Signal<> closed_;
    QPointer<UpdatePanel> panel_;
};

} // namespace calmora
