#include "core/SoundPort.h"

namespace twk {

SoundPort& noSound() {
    static NoSound sound;
    return sound;
}

} // namespace twk
