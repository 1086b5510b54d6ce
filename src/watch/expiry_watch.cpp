#include "watch/expiry_watch.h"

#include "forms/password/frmPass.h"
#include "runtime/forms/application.h"

namespace kestrelmoor {

// No target is evaluated yet: the watch finds nothing to say.
void RunExpiryWatch(bool bPrompt) {
    if (bPrompt)
        return;
    Application::Current().Make<frmPass>()->Show();
}

} // namespace kestrelmoor
