#include "monitor/AlertPort.h"

namespace twk {

AlertPort& noAlerts() {
    static NoAlerts alerts;
    return alerts;
}

} // namespace twk
