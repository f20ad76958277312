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
#include <utility>

namespace calmora {

/// Lets the program run once in a session: by the application's id on the session bus, or without a
/// bus by a lock in the user's runtime folder.
class SingleInstance {
  public:
    /// Becomes the running instance, or asks that one to show itself, which may take up to three
    /// seconds when it is busy.
    SingleInstance(const QDBusConnection& bus, const std::string& applicationId,
                   const std::filesystem::path& runtimeFolder = RuntimeLock::userFolder());
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// Whether this process is the running instance. If not, that one was asked to show itself and
    /// this process may end.
    [[nodiscard]] bool isFirst() const { return isFirst_; }

    /// Called when the program is started a second time. The first subscriber is also called for a
    /// start that came before it.
    [[nodiscard]] Subscription onActivated(std::function<void()> handler);

    /// Called with the name of an action that a launcher asks for, see ApplicationObject.
    [[nodiscard]] Subscription onAction(std::function<void(const QString&)> handler) {
        return acted_.connect(std::move(handler));
    }

  private:
    void activate();
    [[nodiscard]] bool claimName(QDBusConnection bus, const QString& applicationId);
    void claimLock(const std::filesystem::path& folder, const std::string& applicationId);

    bool isFirst_ = true;
    bool isActivationPending_ = false;
    Signal<> activated_;
    Signal<const QString&> acted_;
    std::unique_ptr<ApplicationObject> object_;
    std::unique_ptr<RuntimeLock> lock_;
    std::unique_ptr<QSocketNotifier> attempts_;
};

} // namespace calmora
