#include "KeyboardShortcuts/Recorder.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace calmora {

Recorder::Recorder(const RecorderEnvironment& environment, const QString& title,
                   KeyboardShortcuts::Name name, ShortcutRecorder::OnChange onChange,
                   QWidget* parent)
    : QWidget(parent),
      control_(new RecorderCocoa(environment, std::move(name), title, std::move(onChange), this)) {
    auto* label = new QLabel(title, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(label, 1);
    row->addWidget(control_);
}

} // namespace calmora
