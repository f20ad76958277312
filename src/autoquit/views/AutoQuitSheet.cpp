// SPDX-License-Identifier: MIT
#include "autoquit/views/AutoQuitSheet.h"

#include "autoquit/AutoQuitRules.h"
#include "autoquit/views/ProspectList.h"
#include "platform/RunLoop.h"
#include "platform/Text.h"
#include "settings/AppSettings.h"
#include "settings/ExtraSettings.h"
#include "widgets/ContentArea.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Form.h"
#include "widgets/Labels.h"
#include "widgets/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace calmora {
namespace {

constexpr auto sheetName = "autoQuitSheet";
constexpr Points sheetWidth{400};
constexpr Points sheetHeight{480};
constexpr std::chrono::seconds readingInterval{3};

} // namespace

AutoQuitSheet::AutoQuitSheet(AppSettings& settings, ExtraSettings& extras, const Platform& platform,
                             std::unique_ptr<Forecast> forecast, QWidget* window)
    : Sheet(window, QAccessible::Dialog), settings_(settings), extras_(extras), platform_(platform),
      forecast_(std::move(forecast)) {
    setObjectName(sheetName);
    setWindowTitle(uiText("Auto Quit"));
    setFixedSize(boundedByScreen(*window, {sheetWidth, sheetHeight}));
    auto* form = new Form(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 1, metrics::buttonRadius); // Round corners below.
    layout->setSpacing(0);
    layout->addWidget(titleRow());
    layout->addWidget(new Divider(0, this));
    layout->addWidget(form, 1);

    spares_ = addSwitch(form->addSection(), extras_.sparesWhatIsInUse, extras_.wasSparingOffered,
                        "Spare what is in use and warn first",
                        "Apps that play or record sound, keep the computer awake, are full screen, "
                        "or are in front while you type are left alone. A notice says a minute "
                        "before which app will be quit.");
    together_ =
        addSwitch(form->addSection(), extras_.quitsTogether, extras_.wasQuittingTogetherOffered,
                  "Quit together, show what is left, and Reopen",
                  "Asks all ticked apps at once, says in the list why an app has stayed, "
                  "and offers to start again what was quit.");
    FormSection& prospects = form->addSection(uiText("What auto-quit will do"));
    off_ = prospects.addNote(uiText("Auto-quit is off."));
    off_->setObjectName("autoQuitIsOff");
    list_ = new ProspectList;
    prospects.addRow(list_);

    settingChanges_ = settings_.observeAny([this] { refresh(); });
    extraChanges_ = extras_.observeAny([this] { refresh(); });
    refresh();
}

void AutoQuitSheet::openOver(QWidget& window, AppSettings& settings, ExtraSettings& extras,
                             const Platform& platform, std::unique_ptr<Forecast> forecast) {
    if (window.findChild<QWidget*>(sheetName)) {
        return;
    }
    auto* sheet = new AutoQuitSheet(settings, extras, platform, std::move(forecast), &window);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

QWidget* AutoQuitSheet::titleRow() {
    auto* row = new QWidget(this);
    auto* title = new Paragraph(windowTitle(), TextStyle::headline, ThemeColor::primary, row);
    auto* done = new Button(uiText("Done"), TextStyle::caption, row);
    done->setObjectName("done");
    done->setDefault(true);
    connect(done, &QAbstractButton::clicked, this, &QDialog::accept);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(metrics::formMargin, metrics::rowInset, metrics::formMargin,
                               metrics::rowInset);
    layout->setSpacing(metrics::rowSpacing);
    layout->addWidget(title, 1);
    layout->addWidget(done);
    return row;
}

SwitchRow* AutoQuitSheet::addSwitch(FormSection& section, Preference<bool>& preference,
                                    Preference<bool>& wasOffered, const char* title,
                                    const char* explanation) {
    auto* row = new SwitchRow(uiText(title));
    row->setObjectName(preference.key());
    const QString text = uiText(explanation);
    row->setAccessibleDescription(text);
    connect(row, &QCheckBox::clicked, this, [&preference, &wasOffered] {
        wasOffered.set(true); // Whoever has found the switch needs no offer.
        preference.set(!preference());
    });
    section.addRow(row);
    section.addNote(text);
    return row;
}

void AutoQuitSheet::refresh() {
    spares_->setChecked(extras_.sparesWhatIsInUse());
    together_->setChecked(extras_.quitsTogether());
    off_->setVisible(!settings_.autoQuitEnabled());
    list_->setVisible(settings_.autoQuitEnabled());
    if (isVisible()) {
        readForecast();
    }
}

void AutoQuitSheet::showEvent(QShowEvent* event) {
    Sheet::showEvent(event);
    timer_ = platform_.runLoop.repeat(readingInterval, [this] { readForecast(); });
    readForecast();
}

void AutoQuitSheet::hideEvent(QHideEvent* event) {
    timer_.reset();
    reading_.reset();
    Sheet::hideEvent(event);
}

void AutoQuitSheet::readForecast() {
    if (!settings_.autoQuitEnabled()) {
        reading_.reset();
        return;
    }
    reading_ = forecast_->read([this](std::vector<Prospect> prospects) {
        std::ranges::stable_sort(prospects, [this](const Prospect& a, const Prospect& b) {
            return platform_.text.compare(nameOf(a.application), nameOf(b.application)) < 0;
        });
        list_->show(prospects);
    });
}

} // namespace calmora
