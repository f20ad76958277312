// SPDX-License-Identifier: MIT
// Draws the popover with sample data into pictures for visual checks.
// Usage: calmora_gallery FOLDER; set QT_SCALE_FACTOR for other resolutions.
//        calmora_gallery --time prints what showing the popover costs.

#include "platform/qt/QtLocalizedStrings.h"
#include "ui/PopoverFixture.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QIcon>
#include <QLineEdit>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

namespace {

using namespace calmora;

struct Sample {
    const char* name;
    const char* icon;
    double cpu;
    double memory;
};

const std::vector<Sample> samples{
    {"Calculator", "accessories-calculator", 0.0, 41},
    {"Files", "system-file-manager", 0.4, 96},
    {"Firefox", "web-browser", 12.5, 1843},
    {"GNU Image Manipulation Program", "applications-graphics", 103.7, 512},
    {"Mail", "internet-mail", 1.2, 233},
    {"Mousepad", "accessories-text-editor", 0.1, 38},
    {"Music", "multimedia-audio-player", 3.8, 187},
    {"Settings", "preferences-system", 0.0, 77},
    {"Terminal", "utilities-terminal", 0.6, 54},
    {"مدير الملفات", "no-such-icon", 0.2, 64},
    {"Emoji 🎉 Studio", "applications-multimedia", 7.4, 301},
    {"XTerm", "no-such-icon", 0.0, 12},
};

void fill(PopoverFixture& popover) {
    ProcessId pid = 100;
    for (const Sample& sample : samples) {
        popover.launch(pid, sample.name);
        popover.machine.workspace.at(pid).icon = Image{sample.icon, {}, {}};
        ++pid;
    }
    popover.launch(200, "Indexer", ActivationPolicy::accessory, 102);
    popover.launch(201, "Sync agent", ActivationPolicy::accessory, 102);
    popover.launch(202, "Notifier", ActivationPolicy::accessory, 102);
    popover.launch(210, "Clipboard manager", ActivationPolicy::accessory);
    popover.settings.resourceDisplay.set(ResourceDisplay::both);
}

/// Samples so that a process has used `percent` of a CPU and `mebibytes` of memory.
void use(PopoverFixture& popover, ProcessId pid, double percent, double mebibytes) {
    auto& counters = popover.machine.processes.at(pid).counters;
    counters = counters.value_or(ProcessCounters{});
    counters->physFootprint = static_cast<std::uint64_t>(mebibytes * 1024 * 1024);
    counters->userTime += static_cast<std::uint64_t>(percent * 1e7);
}

void sample(PopoverFixture& popover) {
    popover.model.updateResourceUsage();
    popover.machine.clock.advance(std::chrono::seconds(1));
    ProcessId pid = 100;
    for (const Sample& sample : samples) {
        use(popover, pid++, sample.cpu, sample.memory);
    }
    popover.model.updateResourceUsage();
}

void settle(int milliseconds = 20) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
}

struct Scene {
    const char* name;
    std::function<void(PopoverFixture&)> change;
};

void save(PopoverFixture& popover, const QString& path) {
    settle(350);
    if (!popover.window.grab().save(path)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    }
}

void render(const QDir& folder, Appearance appearance, const QString& suffix) {
    setAppearance({.preferred = appearance});
    const std::vector<Scene> scenes{
        {"normal", [](PopoverFixture&) {}},
        {"force", [](PopoverFixture& p) { p.machine.events.flags.emit({ModifierFlags::option}); }},
        {"protected",
         [](PopoverFixture& p) {
             p.model.toggleWhitelist(102);
             p.model.toggleWhitelist(104);
             p.model.toggleSelection(101);
         }},
        {"nothing-ticked", [](PopoverFixture& p) { p.model.setAllSelected(false); }},
        {"search", [](PopoverFixture& p) { p.model.setSearchText("ma"); }},
        {"empty", [](PopoverFixture& p) { p.model.setSearchText("zebra"); }},
        {"background",
         [](PopoverFixture& p) {
             p.settings.viewBackgroundApps.set(true);
             settle();
             auto* bar = p.view->findChild<QScrollArea*>("list")->verticalScrollBar();
             bar->setValue(bar->maximum());
             settle();
             for (auto* button : p.view->findChildren<QAbstractButton*>("groupHeader")) {
                 button->click();
             }
             settle(300);
             bar->setValue(bar->maximum());
         }},
        {"quitting",
         [](PopoverFixture& p) {
             for (ProcessId pid = 100; pid < 112; ++pid) {
                 p.machine.workspace.at(pid).endsAfterTerminate.reset();
             }
             for (const ProcessId pid : {100, 102, 103}) {
                 p.model.beginQuit(pid, false);
             }
         }},
        {"stayed",
         [](PopoverFixture& p) {
             for (const ProcessId pid : {100, 103}) {
                 p.machine.workspace.at(pid).endsAfterTerminate.reset();
             }
             p.machine.workspace.at(100).isAsking = true;
             p.machine.workspace.at(103).isUnresponsive = true;
             p.extras.quitsTogether.set(true);
             p.machine.workspace.at(102).desktopId = "web";
             p.model.refresh();
             for (const ProcessId pid : {100, 102, 103, 104}) {
                 p.model.beginQuit(pid, false);
             }
             p.machine.runLoop.advance(std::chrono::seconds(2));
         }},
        {"offer",
         [](PopoverFixture& p) {
             p.machine.workspace.at(100).endsAfterTerminate.reset();
             p.view->findChild<QAbstractButton*>("quit")->click();
         }},
        {"focus",
         [](PopoverFixture& p) {
             p.view->window()->setAttribute(Qt::WA_KeyboardFocusChange);
             p.view->findChild<QAbstractButton*>("tick")->setFocus();
         }},
    };
    for (const Scene& scene : scenes) {
        PopoverFixture popover;
        fill(popover);
        popover.window.show();
        sample(popover);
        settle();
        scene.change(popover);
        save(popover, folder.filePath(scene.name + suffix));
    }
}

void renderSymbols(const QDir& folder, const QString& suffix) {
    const QDir symbols(":/calmora/symbols");
    QWidget sheet;
    sheet.resize(360, 140);
    QPixmap picture(sheet.size() * sheet.devicePixelRatioF());
    picture.setDevicePixelRatio(sheet.devicePixelRatioF());
    picture.fill(Qt::white);
    QPainter painter(&picture);
    int x = 4;
    for (const QString& file : symbols.entryList()) {
        const QString name = file.chopped(4);
        int y = 4;
        for (const int side : {12, 18, 20}) {
            drawSymbol(painter, QRect(x, y, side, side), name, side, Qt::black);
            y += side + 8;
        }
        x += 19;
    }
    painter.end();
    picture.save(folder.filePath("symbols" + suffix));
}

/// Counts the paints of a widget.
class PaintWatch final : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }

    int count = 0;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double residentMiB() {
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.simplified().split(' ')[1].toDouble() / 1024;
        }
    }
    return 0;
}

/// CPU time of this process, which a busy machine does not blur.
class CpuTimer {
  public:
    [[nodiscard]] double milliseconds() const {
        return 1000.0 * static_cast<double>(std::clock() - start_) / CLOCKS_PER_SEC;
    }

  private:
    std::clock_t start_ = std::clock();
};

/// Prints what showing and updating the popover with 30 applications costs, in CPU time.
void measure() {
    constexpr int rounds = 50;
    const double atStart = residentMiB();
    PopoverFixture popover;
    for (ProcessId pid = 100; pid < 130; ++pid) {
        popover.launch(pid, "Application " + std::to_string(pid));
        popover.machine.workspace.at(pid).icon =
            Image{samples[static_cast<std::size_t>(pid) % samples.size()].icon, {}, {}};
    }
    popover.settings.resourceDisplay.set(ResourceDisplay::both);
    CpuTimer timer;
    const double atRest = residentMiB();
    PaintWatch watch;
    popover.view->findChild<QWidget*>("openSettings")->installEventFilter(&watch);
    std::vector<double> showing;
    for (int i = 0; i <= rounds; ++i) {
        timer = CpuTimer();
        watch.count = 0;
        popover.window.show();
        while (watch.count == 0 || popover.window.testAttribute(Qt::WA_PendingUpdate)) {
            QCoreApplication::processEvents();
        }
        if (i == 0) {
            std::printf("first showing            %6.2f ms\n", timer.milliseconds());
        } else {
            showing.push_back(timer.milliseconds());
        }
        settle(5);
        popover.window.hide();
    }
    std::printf("later showings, median   %6.2f ms\n", median(showing));
    popover.window.show();
    settle();
    std::vector<double> sampling;
    std::vector<double> updating;
    for (int i = 0; i < rounds; ++i) {
        popover.machine.clock.advance(std::chrono::seconds(3));
        for (ProcessId pid = 100; pid < 130; ++pid) {
            use(popover, pid, i % 7 + 0.1 * (pid % 10), 50 + i % 5);
        }
        timer = CpuTimer();
        popover.model.updateResourceUsage();
        sampling.push_back(timer.milliseconds());
        timer = CpuTimer();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
        updating.push_back(timer.milliseconds());
        settle(2);
    }
    std::printf("a sample, every figure new: list %.2f ms, paint %.2f ms\n", median(sampling),
                median(updating));
    std::printf("resident: %.1f MiB without the popover, %.1f with it at rest, %.1f after use\n",
                atStart, atRest, residentMiB());
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: calmora_gallery FOLDER | --time\n");
        return 2;
    }
    QIcon::setThemeSearchPaths({"/usr/share/icons"});
    QIcon::setThemeName("Adwaita");
    installTheme(application);
    const QtLocalizedStrings strings{QLocale(QLocale::English)};
    if (qstrcmp(argv[1], "--time") == 0) {
        measure();
        return 0;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(".");
    const QString scale = qEnvironmentVariable("QT_SCALE_FACTOR", "1");
    render(folder, Appearance::light, QStringLiteral("-light-%1x.png").arg(scale));
    render(folder, Appearance::dark, QStringLiteral("-dark-%1x.png").arg(scale));
    renderSymbols(folder, QStringLiteral("-%1x.png").arg(scale));

    setAppearance({.preferred = Appearance::light});
    const auto special = [&](const char* name, const std::function<void(PopoverFixture&)>& change) {
        PopoverFixture popover;
        fill(popover);
        popover.model.toggleWhitelist(102);
        popover.window.show();
        popover.model.toggleWhitelist(102);
        sample(popover);
        settle();
        change(popover);
        save(popover, folder.filePath(QStringLiteral("%1-light-%2x.png").arg(name, scale)));
    };
    special("many", [](PopoverFixture& p) {
        for (ProcessId pid = 1000; pid < 1500; ++pid) {
            p.launch(pid, "Application " + std::to_string(pid));
        }
        p.model.refresh();
        settle();
        p.view->findChild<QScrollArea*>("list")->verticalScrollBar()->setValue(5000);
    });
    for (const QLocale& locale : {QLocale(QLocale::German), QLocale(QLocale::Japanese)}) {
        const QtLocalizedStrings translated(locale);
        special(qPrintable(QLocale::languageToString(locale.language()).toLower()),
                [](PopoverFixture& p) {
                    p.settings.viewBackgroundApps.set(true);
                    p.model.toggleWhitelist(103);
                });
    }
    QApplication::setLayoutDirection(Qt::RightToLeft);
    special("right-to-left", [](PopoverFixture& p) {
        p.settings.viewBackgroundApps.set(true);
        p.model.toggleWhitelist(102);
    });
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QFont font = QApplication::font();
    font.setPointSize(15);
    QApplication::setFont(font);
    special("larger-font", [](PopoverFixture& p) { p.model.toggleWhitelist(102); });
    return 0;
}
