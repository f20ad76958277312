#pragma once

#include "platform/Image.h"
#include "updates/UpdatePresenter.h"

#include <QWidget>

#include <functional>
#include <string>

namespace calmora {

/// The small window with the answer to a check. Deletes itself when it is closed.
class UpdatePanel final : public QWidget {
  public:
    /// Opens a web page.
    using OpenPage = std::function<void(const std::string&)>;

    /// Shows nothing yet. `onClosed` is called when the user closes the window.
    UpdatePanel(const Image& icon, OpenPage openPage, std::function<void()> onClosed);

    /// Shows a report in place of the one before, and takes the size that it needs.
    void show(const UpdateReport& report);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    [[nodiscard]] QWidget* makeContent(const UpdateReport& report);

    Image icon_;
    OpenPage openPage_;
    std::function<void()> onClosed_;
    QWidget* content_ = nullptr;
};

} // namespace calmora
