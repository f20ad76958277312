#include "platform/qt/window/FocusMove.h"

namespace calmora {

FocusVerdict judge(const FocusMove& move) {
    if (move.isStillHere || move.isAlertOpen) {
        return FocusVerdict::stay;
    }
    const bool isTurningAway = move.isOwnerOurs || move.isOwnerNew || move.userActed ||
                               (move.formerOwnerExists && !move.windowVanished);
    return isTurningAway ? FocusVerdict::close : FocusVerdict::takeBack;
}

} // namespace calmora
