#include "platform/database/file/lenient_opening.h"

namespace {

thread_local int opened = 0;

}  // namespace

LenientOpening::LenientOpening() {
    ++opened;
}

LenientOpening::~LenientOpening() {
    --opened;
}

bool LenientOpening::isOn() {
    return opened > 0;
}
