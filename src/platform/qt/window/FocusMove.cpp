#include "platform/qt/window/FocusMove.h"

namespace calmora {

FocusVerdict judge(const FocusMove& move) {
    if (move.isStillHere || move.isAlertOpen) {
        return FocusVerdict::stay;
    }
    if (move.isOwnerOurs || move.isOwnerNew || move.userActed) {
        return FocusVerdict::close;
    }
    if (!move.formerOwnerExists || move.windowVanished) {
        return FocusVerdict::takeBack;
    }
    return move.isSettled ? FocusVerdict::close : FocusVerdict::waitAndSee;
}

} // namespace calmora
