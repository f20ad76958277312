#pragma once

#include "platform/desktop/single_instance/ApplicationObject.h"
#include "platform/desktop/single_instance/RuntimeLock.h"
#include "support/Signal.h"
#include "support/Subscription.h"

#include <QDBusConnection>
#include <QSocketNotifier>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace calmora {

/// Lets the program run once in a session. On the session bus the application's id is the proof;
/// without a bus it is a lock in the user's runtime folder.
class SingleInstance {
  public:
    /// Becomes the one that runs, or asks the one that runs to show itself, which may take up to
    /// three seconds when that one is busy.
    SingleInstance(const QDBusConnection& bus, const std::string& applicationId,
                   const std::filesystem::path& runtimeFolder = RuntimeLock::userFolder());
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Whether this process is the one that runs. If not, the other one knows by now and this
    /// process has nothing left to do.
    [[nodiscard]] bool isFirst() const { return isFirst_; }

    /// Tells that the program was started a second time. The first subscriber also hears of a
    /// start that came before it.
    [[nodiscard]] Subscription onActivated(std::function<void()> handler);

  private:
    void activate();
    [[nodiscard]] bool claimName(QDBusConnection bus, const QString& applicationId);
    void claimLock(const std::filesystem::path& folder, const std::string& applicationId);

    bool isFirst_ = true;
    bool isActivationPending_ = false;
    Signal<> activated_;
    std::unique_ptr<ApplicationObject> object_;
    std::unique_ptr<RuntimeLock> lock_;
    std::unique_ptr<QSocketNotifier> knocks_;
};

} // namespace calmora
