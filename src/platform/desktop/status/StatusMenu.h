#pragma once

#include "platform/StatusItem.h"

#include <QMenu>
#include <QString>

#include <vector>

namespace calmora {

/// The status item's menu where no panel draws it. Its key equivalents work while it is open.
class StatusMenu : public QMenu {
  public:
    explicit StatusMenu(const std::vector<StatusMenuItem>& items);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace calmora
