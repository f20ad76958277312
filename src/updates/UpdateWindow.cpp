#include "updates/UpdateWindow.h"

#include "widgets/Pictures.h"

#include <QIcon>

#include <utility>

namespace calmora {
namespace {

/// Title bars and task switchers scale from this size.
constexpr int windowIconSide = 64;

} // namespace

UpdateWindow::UpdateWindow(Image icon, UpdatePanel::OpenPage openPage)
    : icon_(std::move(icon)), openPage_(std::move(openPage)) {}

UpdateWindow::~UpdateWindow() {
    delete panel_;
}

void UpdateWindow::show(const UpdateReport& report) {
    if (!panel_) {
        panel_ = new UpdatePanel(icon_, openPage_, [this] {
            panel_.clear(); // It deletes itself.
            closed_.emit();
        });
        panel_->setWindowIcon(imagePixmap(icon_, windowIconSide, 1));
    }
    panel_->show(report);
    panel_->raise();
    panel_->activateWindow();
}

Subscription UpdateWindow::onClosed(std::function<void()> handler) {
    return closed_.connect(std::move(handler));
}

} // namespace calmora
