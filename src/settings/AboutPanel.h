// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Image.h"

#include <QWidget>

#include <optional>
#include <string>

class QLabel;

namespace calmora {

class LocalizedStrings;

/// The small window with icon, name and version. Deletes itself when it is closed.
class AboutPanel final : public QWidget {
  public:
    /// Without a version the panel shows "1.0.0".
    AboutPanel(const LocalizedStrings& strings, const Image& icon,
               const std::optional<std::string>& version);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void colorVersion();

    QLabel* version_ = nullptr;
};

} // namespace calmora
