// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"
#include "platform/Image.h"
#include "platform/StatusItem.h"
#include "platform/desktop/status/Glyph.h"

#include <QColor>
#include <QObject>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QTimer>

#include <array>
#include <functional>
#include <optional>

namespace calmora {

/// A legacy XEmbed tray icon, for desktops without a register of status items. Must not be made
/// while there is such a register: Qt decides once per process which kind it uses.
/// Source: freedesktop System Tray Protocol.
class TrayIcon : public QObject {
  public:
    /// `onClick` is called for every click, also for a fast second one.
    TrayIcon(const QString& title, std::function<void(StatusEvent)> onClick);

    /// The glyph, drawn black or white to contrast with the tray.
    void setGlyph(const std::optional<Image>& glyph);

    void setToolTip(const QString& text) { icon_.setToolTip(text); }

    /// Where the icon is on screen; absent while no tray shows it.
    [[nodiscard]] std::optional<Rect> geometry() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void draw();
    void adaptColor();
    /// Starts the late looks again from their beginning.
    void lookAgain();

    QSystemTrayIcon icon_;
    std::function<void(StatusEvent)> onClick_;
    std::optional<Image> glyph_;
    QColor color_;
    bool isAdapting_ = false;
    std::array<QTimer, latePaintings.size()> looks_;
    /// The icon's window, once it was painted.
    QPointer<QObject> painted_;
};

} // namespace calmora
