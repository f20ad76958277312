// SPDX-License-Identifier: MIT
#pragma once

#include "platform/DesktopExtension.h"
#include "platform/gnome/ExtensionRules.h"
#include "support/Signal.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <string>
#include <vector>

class QDBusMessage;

namespace calmora {

class ShellLink;
class UserDefaults;

/// Our extension in GNOME's shell, as the user allows it. Asks the shell only while the extension
/// is not attached; never waits for it.
/// Source: GNOME Shell, org.gnome.Shell.Extensions; GSettings schema org.gnome.shell.
class ShellExtension final : public DesktopExtension {
  public:
    /// The references must outlive it.
    ShellExtension(const QDBusConnection& connection, ShellLink& link, UserDefaults& defaults);
    ShellExtension(const ShellExtension&) = delete;
    ShellExtension& operator=(const ShellExtension&) = delete;

    [[nodiscard]] State state() const override { return state_; }

    [[nodiscard]] std::string purpose() const override;
    void refresh() override;
    void enable() override;
    void decline() override;
    [[nodiscard]] Subscription onChanged(std::function<void()> handler) override;

  private:
    void ask(const char* method, const QVariantList& arguments,
             std::function<void(const QDBusMessage&)> done);
    void readProperties(const QDBusMessage& answer);
    void decide();
    void setAnswer(ExtensionAnswer answer);
    void setState(State state);

    QDBusConnection connection_;
    ShellLink& link_;
    UserDefaults& defaults_;
    ExtensionFacts facts_;
    State state_ = State::none;
    Signal<> changed_;
    QObject context_;
    Subscription linkChanges_;
};

/// Takes our extensions off the user's list of those that the shell runs; a running shell ends them
/// at once. True as well if none was on it; false if one stays there.
[[nodiscard]] bool disableExtensions();

} // namespace calmora
