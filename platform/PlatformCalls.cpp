#include "platform/PlatformCalls.h"

namespace platform {

Calls& CurrentCalls() {
    static Calls calls = SystemCalls();
    return calls;
}

}  // namespace platform
