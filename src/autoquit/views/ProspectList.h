// SPDX-License-Identifier: MIT
#pragma once

#include "autoquit/Forecast.h"
#include "platform/ProcessId.h"
#include "widgets/Form.h"

#include <vector>

namespace calmora {

class Label;
class Paragraph;

/// The running applications, a row each with what auto-quit will do to it.
class ProspectList final : public FormRows {
  public:
    explicit ProspectList(QWidget* parent = nullptr);

    /// Shows these in their order. Rows of the same applications only change their texts.
    void show(const std::vector<Prospect>& prospects);

  private:
    struct Row {
        ProcessId process = 0;
        QString name;
        QWidget* widget = nullptr;
        Paragraph* text = nullptr;
    };

    [[nodiscard]] Row makeRow(const Prospect& prospect);

    std::vector<Row> shown_;
    QWidget* empty_;
};

} // namespace calmora
