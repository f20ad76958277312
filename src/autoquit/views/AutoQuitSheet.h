// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/Forecast.h"
#include "platform/Platform.h"
#include "support/Subscription.h"
#include "widgets/Sheet.h"

#include <memory>

namespace calmora {

class AppSettings;
class ExtraSettings;
class Form;
class FormSection;
class ProspectList;
class SwitchRow;
template <typename Value>
class Preference;

/// The sheet with what is off until the user switches it on, and with what auto-quit will do to
/// each running application. The list is read anew every few seconds while the sheet is open.
class AutoQuitSheet final : public Sheet {
  public:
    /// The references must outlive the sheet; `window` is the window that it is attached to.
    AutoQuitSheet(AppSettings& settings, ExtraSettings& extras, const Platform& platform,
                  std::unique_ptr<Forecast> forecast, QWidget* window);

    /// Opens the sheet over a window unless it is open there. It deletes itself.
    static void openOver(QWidget& window, AppSettings& settings, ExtraSettings& extras,
                         const Platform& platform, std::unique_ptr<Forecast> forecast);

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    [[nodiscard]] QWidget* titleRow();
    SwitchRow* addSwitch(FormSection& section, Preference<bool>& preference,
                         Preference<bool>& wasOffered, const char* title, const char* explanation);
    void refresh();
    void readForecast();

    AppSettings& settings_;
    ExtraSettings& extras_;
    Platform platform_;
    std::unique_ptr<Forecast> forecast_;
    SwitchRow* spares_ = nullptr;
    SwitchRow* together_ = nullptr;
    QWidget* off_ = nullptr;
    ProspectList* list_ = nullptr;
    Subscription settingChanges_;
    Subscription extraChanges_;
    Subscription timer_;
    Subscription reading_;
};

} // namespace calmora
