#include "settings/AddAppSheet.h"

#include "settings/CandidateList.h"
#include "settings/NeverQuitEditing.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Metrics.h"
#include "widgets/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>
#include <vector>

namespace calmora {
namespace {

constexpr QSize sheetSize{360, 400};
constexpr int emptySymbolPoints = 30;

QWidget* emptyState(QWidget* parent) {
    auto* state = new QWidget(parent);
    state->setObjectName("noCandidates");
    auto* layout = new QVBoxLayout(state);
    layout->setSpacing(metrics::rowSpacing);
    layout->addStretch(1);
    layout->addWidget(new SymbolView("app.dashed", emptySymbolPoints, ThemeColor::tertiary, state),
                      0, Qt::AlignHCenter);
    auto* text = new Paragraph(uiText("No running apps found"), TextStyle::body,
                               ThemeColor::secondary, state);
    text->setAlignment(Qt::AlignHCenter);
    layout->addWidget(text);
    layout->addStretch(1);
    return state;
}

} // namespace

AddAppSheet::AddAppSheet(AppSettings& settings, const Platform& platform, QWidget* window)
    : QDialog(window, Qt::Dialog | Qt::FramelessWindowHint) {
    setObjectName("addAppSheet");
    setWindowTitle(uiText("Add App to Never-Quit List"));
    setWindowModality(Qt::WindowModal);
    setFixedSize(sheetSize);

    auto* title = new Paragraph(windowTitle(), TextStyle::headline, ThemeColor::primary, this);
    auto* done = new Button(uiText("Done"), TextStyle::caption, this);
    done->setObjectName("done");
    done->setDefault(true);
    connect(done, &QAbstractButton::clicked, this, &QDialog::accept);
    auto* titleRow = new QHBoxLayout;
    titleRow->setContentsMargins(metrics::formMargin, metrics::rowInset, metrics::formMargin,
                                 metrics::rowInset);
    titleRow->setSpacing(metrics::rowSpacing);
    titleRow->addWidget(title, 1);
    titleRow->addWidget(done);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 1, 1);
    layout->setSpacing(0);
    layout->addLayout(titleRow);
    layout->addWidget(new Divider(0, this));
    std::vector<WorkspaceApplication> candidates = addAppCandidates(platform);
    if (candidates.empty()) {
        layout->addWidget(emptyState(this), 1);
    } else {
        layout->addWidget(new CandidateList(settings, platform, std::move(candidates), this), 1);
    }
    window->installEventFilter(this);
}

bool AddAppSheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
        moveToTopOfWindow();
    }
    return QDialog::eventFilter(watched, event);
}

void AddAppSheet::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    moveToTopOfWindow();
}

void AddAppSheet::moveToTopOfWindow() {
    const QWidget* window = parentWidget();
    move(window->mapToGlobal(QPoint((window->width() - width()) / 2, 0)));
}

void AddAppSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().window());
    painter.setPen(Theme::of(*this).color(ThemeColor::controlBorder));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace calmora
