// SPDX-License-Identifier: MIT
#include "updates/UpdateWindow.h"

#include "widgets/ContentArea.h"
#include "widgets/Controls.h"
#include "widgets/DisplayText.h"
#include "widgets/Labels.h"
#include "widgets/Pictures.h"
#include "widgets/Theme.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <utility>

namespace calmora {
namespace {

/// Title bars and task switchers scale from this size.
constexpr int windowIconSide = 64;
constexpr Points padding{20};
constexpr Points iconSide{48};
constexpr Points usualWidth{400};
constexpr Points notesHeight{150};
constexpr Points notesMargin{8};
constexpr Points sideGap{16};
constexpr Points lineGap{6};
constexpr Points buttonGap{8};

QWidget* makeNotes(const std::string& text) {
    auto* notes = new QPlainTextEdit(QString::fromStdString(text));
    notes->setObjectName("notes");
    notes->setReadOnly(true);
    notes->setTabChangesFocus(true);
    notes->setContextMenuPolicy(Qt::NoContextMenu);
    notes->setFont(Theme::font(TextStyle::body));
    notes->document()->setDocumentMargin(notesMargin);
    notes->setFixedHeight(notesHeight);
    notes->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return notes;
}

} // namespace

/// The small window with the answer to a check. Deletes itself when it is closed.
class UpdateWindow::Panel final : public QWidget {
  public:
    /// Shows nothing yet. `onClosed` is called when the user closes the window.
    Panel(const Image& icon, OpenPage openPage, std::function<void()> onClosed)
        : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                               Qt::WindowCloseButtonHint),
          icon_(icon), openPage_(std::move(openPage)), onClosed_(std::move(onClosed)) {
        setAttribute(Qt::WA_DeleteOnClose);
        setObjectName("updatePanel");
        setWindowTitle("Calmora");
        setWindowIcon(imagePixmap(icon_, windowIconSide, 1));
    }

    /// Shows a report in place of the one before, and takes the size that it needs.
    void show(const UpdateReport& report);

  protected:
    void closeEvent(QCloseEvent* event) override {
        event->accept();
        onClosed_();
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Escape) {
            close();
        } else {
            QWidget::keyPressEvent(event);
        }
    }

  private:
    [[nodiscard]] QWidget* makeContent(const UpdateReport& report);

    Image icon_;
    OpenPage openPage_;
    std::function<void()> onClosed_;
    QWidget* content_ = nullptr;
};

void UpdateWindow::Panel::show(const UpdateReport& report) {
    // The old content may be in the middle of a click.
    if (content_) {
        content_->hide();
        content_->deleteLater();
    }
    content_ = new ContentArea(makeContent(report), this);
    const int width = boundedByScreen(*this, {usualWidth, 0}).width();
    const QSize size = boundedByScreen(*this, {width, content_->heightForWidth(width)});
    content_->setGeometry({{}, size});
    setFixedSize(size);
    setAccessibleName(QString::fromStdString(report.title));
    content_->show();
    if (auto* first = content_->findChild<QWidget*>("close")) {
        first->setFocus(Qt::ActiveWindowFocusReason);
    }
    QWidget::show();
}

QWidget* UpdateWindow::Panel::makeContent(const UpdateReport& report) {
    auto* content = new QWidget;
    auto* texts = new QVBoxLayout;
    texts->setSpacing(lineGap);
    const auto add = [&](const char* name, const std::string& text, TextStyle style,
                         ThemeColor color) {
        if (!text.empty()) {
            auto* line = new Paragraph(QString::fromStdString(text), style, color);
            line->setObjectName(name);
            texts->addWidget(line);
        }
    };
    add("title", report.title, TextStyle::headline, ThemeColor::primary);
    add("text", report.text, TextStyle::body, ThemeColor::secondary);
    texts->addStretch();
    auto* picture = new QLabel;
    picture->setPixmap(imagePixmap(icon_, iconSide, devicePixelRatio()));
    auto* upper = new QHBoxLayout;
    upper->setSpacing(sideGap);
    upper->addWidget(picture, 0, Qt::AlignTop);
    upper->addLayout(texts, 1);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(buttonGap);
    buttons->addStretch();
    if (!report.page.empty()) {
        auto* open = new Button(uiText("update_open_page"), TextStyle::body);
        open->setObjectName("openPage");
        connect(open, &QAbstractButton::clicked, this, [this, page = report.page] {
            openPage_(page);
            close();
        });
        buttons->addWidget(open);
    }
    auto* closing = new Button(uiText(report.isRunning ? "Cancel" : "Close"), TextStyle::body);
    closing->setObjectName("close");
    connect(closing, &QAbstractButton::clicked, this, &QWidget::close);
    buttons->addWidget(closing);

    auto* all = new QVBoxLayout(content);
    all->setContentsMargins(padding, padding, padding, padding);
    all->setSpacing(sideGap);
    all->addLayout(upper);
    if (!report.notes.empty()) {
        QWidget* notes = makeNotes(report.notes);
        notes->setAccessibleName(QString::fromStdString(report.title));
        all->addWidget(notes);
    }
    all->addLayout(buttons);
    return content;
}

UpdateWindow::UpdateWindow(Image icon, OpenPage openPage)
    : icon_(std::move(icon)), openPage_(std::move(openPage)) {}

UpdateWindow::~UpdateWindow() {
    delete panel_;
}

void UpdateWindow::show(const UpdateReport& report) {
    if (!panel_) {
        panel_ = new Panel(icon_, openPage_, [this] {
            panel_.clear(); // It deletes itself.
            closed_.emit();
        });
    }
    panel_->show(report);
    panel_->raise();
    panel_->activateWindow();
}

Subscription UpdateWindow::onClosed(std::function<void()> handler) {
    return closed_.connect(std::move(handler));
}

} // namespace calmora
