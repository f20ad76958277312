#pragma once

#include "platform/qt/window/ManagedTransientWindows.h"

#include <QRect>
#include <QWindow>

#include <string>
#include <utility>

namespace calmora {

/// Lends a keyboard that a test takes away.
class FakeTransientWindows final : public TransientWindows {
  public:
    /// What the loans were asked, in order: "lend", "renew", "check", "return".
    std::string calls;
    std::function<bool()> isAlertOpen;
    std::function<void(Leaving)> onLeft;
    std::optional<std::uint32_t> time;

    [[nodiscard]] Qt::WindowFlags transientFlags() const override {
        return Qt::Tool | Qt::FramelessWindowHint;
    }

    [[nodiscard]] bool isComposited() override { return true; }

    void setInputArea(QWindow&, const QRect&) override {}

    [[nodiscard]] std::unique_ptr<KeyboardLoan>
    lendKeyboard(QWindow& window, std::function<bool()> alertOpen,
                 std::function<void(Leaving)> left) override {
        window.requestActivate();
        isAlertOpen = std::move(alertOpen);
        onLeft = std::move(left);
        return std::make_unique<Loan>(*this);
    }

    [[nodiscard]] std::optional<ModifierFlags> modifiers() override { return {}; }

    [[nodiscard]] std::optional<std::uint32_t> eventTime() override { return time; }

  private:
    class Loan final : public KeyboardLoan {
      public:
        explicit Loan(FakeTransientWindows& fake) : fake_(fake) { fake_.calls += "lend "; }

        ~Loan() override { fake_.calls += "return "; }

        void renew() override { fake_.calls += "renew "; }

        void check() override { fake_.calls += "check "; }

      private:
        FakeTransientWindows& fake_;
    };
};

} // namespace calmora
